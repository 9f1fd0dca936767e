# What goes where on a machine: the program for everybody, the core for those who build on it; and Debian packages of
# both (`cpack` in a build folder).
include(GNUInstallDirs)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)
install(TARGETS QuillmarQuickLook COMPONENT program)
install(CODE "file(CREATE_LINK QuillmarQuickLook
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/quillmar\" SYMBOLIC)" COMPONENT program)
install(TARGETS QuillmarIconRenderer DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quillmar COMPONENT program)
install(FILES packaging/quillmar.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
install(FILES packaging/completions/quillmar.bash RENAME quillmar
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
install(FILES packaging/completions/_quillmar DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions
        COMPONENT program)
install(FILES packaging/completions/quillmar.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
        COMPONENT program)
install(FILES README.md docs/terminal.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program)

# The window, a package of its own: it needs GTK and WebKit, the program does not.
if(TARGET QuillmarViewer)
    install(TARGETS QuillmarViewer DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quillmar COMPONENT viewer)
    install(FILES packaging/desktop/app.quillmar.Viewer.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
            COMPONENT viewer)
    install(FILES packaging/desktop/app.quillmar.Preview.desktop
            DESTINATION ${CMAKE_INSTALL_DATADIR}/file-manager/actions COMPONENT viewer)
    install(FILES packaging/desktop/app.quillmar.Viewer.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
            COMPONENT viewer)
    install(FILES packaging/desktop/app.quillmar.Viewer.svg
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT viewer)
endif()

# The core's door and what its declarations name.
install(TARGETS QuickPreviewCore COMPONENT development)
foreach(header PreviewDocument.h QuickPreview.h Platform/Data.h Platform/FileURL.h Support/IconSource.h
               Support/ImageFiles.h Support/PreviewAssets.h)
    get_filename_component(room ${header} DIRECTORY)
    install(FILES Sources/QuickPreviewCore/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillmar/${room}
            COMPONENT development)
endforeach()

include(CMakePackageConfigHelpers)
set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/QuickPreviewCore)
file(RELATIVE_PATH PREFIX_FROM_CONFIG /${packageFolder} /)
string(REGEX REPLACE "/$" "" PREFIX_FROM_CONFIG "${PREFIX_FROM_CONFIG}")
file(RELATIVE_PATH PREFIX_FROM_PKG_CONFIG /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PREFIX_FROM_PKG_CONFIG "${PREFIX_FROM_PKG_CONFIG}")
configure_file(packaging/QuickPreviewCoreConfig.cmake.in QuickPreviewCoreConfig.cmake @ONLY)
configure_file(packaging/QuickPreviewCore.pc.in QuickPreviewCore.pc @ONLY)
write_basic_package_version_file(QuickPreviewCoreConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QuickPreviewCoreConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/QuickPreviewCoreConfigVersion.cmake
        DESTINATION ${packageFolder} COMPONENT development)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QuickPreviewCore.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL program development)
if(TARGET QuillmarViewer)
    list(APPEND CPACK_COMPONENTS_ALL viewer)
endif()
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "The Quillmar developers <developers@quillmar.invalid>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME quillmar)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "shows what a file or folder is, as one HTML page")
set(CPACK_DEBIAN_VIEWER_PACKAGE_NAME quillmar-viewer)
set(CPACK_DEBIAN_VIEWER_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_VIEWER_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_VIEWER_PACKAGE_DEPENDS "quillmar (= ${PROJECT_VERSION}), bubblewrap, xdg-dbus-proxy")
set(CPACK_COMPONENT_VIEWER_DESCRIPTION "shows what files are when the space bar is pressed")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquickpreviewcore-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libicu-dev (>= 72), liblzma-dev (>= 5.4), libisal-dev, libgomp1")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "previews for programs of one's own")
include(CPack)
