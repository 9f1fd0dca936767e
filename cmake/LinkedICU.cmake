# LinkedICU: ICU 72 or later as it goes into the program.
#
# As shared libraries, ICU and libstdc++ cost more than half of the time of a small preview at every start
# (1.7 of 2.9 ms); linked in, they cost 32 MB of disk, of which only the pages in use are read.

find_package(ICU 72 REQUIRED COMPONENTS i18n uc)
add_library(LinkedICU INTERFACE)
if(QUILLMAR_STATIC_LIBRARIES)
    foreach(name i18n uc data)
        find_library(LINKED_ICU_${name} NAMES libicu${name}.a REQUIRED)
        list(APPEND libraries ${LINKED_ICU_${name}})
    endforeach()
    target_include_directories(LinkedICU SYSTEM INTERFACE ${ICU_INCLUDE_DIRS})
    target_link_libraries(LinkedICU INTERFACE ${libraries})
    target_link_options(LinkedICU INTERFACE -static-libstdc++ -static-libgcc)
else()
    target_link_libraries(LinkedICU INTERFACE ICU::i18n ICU::uc)
endif()
