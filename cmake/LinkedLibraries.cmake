# LinkedICU, LinkedLZMA, LinkedOpenMP and LinkedSeccomp: ICU 72, liblzma 5.4, OpenMP 3 and libseccomp 2.5 or later
# as they go into the program.
#
# As shared libraries, ICU and libstdc++ cost more than half of the time of a small preview at every start
# (1.7 of 2.9 ms); linked in, they cost 32 MB of disk, of which only the pages in use are read.

find_package(ICU 72 REQUIRED COMPONENTS i18n uc)
find_package(LibLZMA 5.4 REQUIRED)
find_package(Threads REQUIRED)

add_library(LinkedICU INTERFACE)
add_library(LinkedLZMA INTERFACE)
if(QUILLMAR_STATIC_LIBRARIES)
    foreach(name i18n uc data)
        find_library(LINKED_ICU_${name} NAMES libicu${name}.a REQUIRED)
        target_link_libraries(LinkedICU INTERFACE ${LINKED_ICU_${name}})
    endforeach()
    find_library(LINKED_LZMA NAMES liblzma.a REQUIRED)
    target_link_libraries(LinkedLZMA INTERFACE ${LINKED_LZMA} Threads::Threads)
    target_link_options(LinkedICU INTERFACE -static-libstdc++ -static-libgcc)
else()
    target_link_libraries(LinkedICU INTERFACE ICU::i18n ICU::uc)
    target_link_libraries(LinkedLZMA INTERFACE LibLZMA::LibLZMA)
endif()

# The compiler's own loops on several threads. Without them folders are measured on one.
add_library(LinkedOpenMP INTERFACE)
find_package(OpenMP 3)
if(OpenMP_CXX_FOUND)
    if(QUILLMAR_STATIC_LIBRARIES AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libgomp.a
                        OUTPUT_VARIABLE LINKED_GOMP OUTPUT_STRIP_TRAILING_WHITESPACE)
        target_compile_options(LinkedOpenMP INTERFACE ${OpenMP_CXX_FLAGS})
        target_link_libraries(LinkedOpenMP INTERFACE ${LINKED_GOMP} Threads::Threads)
    else()
        target_link_libraries(LinkedOpenMP INTERFACE OpenMP::OpenMP_CXX)
    endif()
endif()

find_package(PkgConfig REQUIRED)
pkg_check_modules(SECCOMP REQUIRED IMPORTED_TARGET libseccomp>=2.5)
add_library(LinkedSeccomp INTERFACE)
if(QUILLMAR_STATIC_LIBRARIES)
    find_library(LINKED_SECCOMP NAMES libseccomp.a REQUIRED)
    target_link_libraries(LinkedSeccomp INTERFACE ${LINKED_SECCOMP})
else()
    target_link_libraries(LinkedSeccomp INTERFACE PkgConfig::SECCOMP)
endif()
