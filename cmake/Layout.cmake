# The header with which a host proves that its records are laid out as the plug-in's. It depends on this build's values, so
# it is made here and not kept; by a program of its own, which needs no library, so that it is installed as well where the
# development host is not built. A cross build needs a C++ library for that program, and a way to run it.
include(CheckIncludeFileCXX)
check_include_file_cxx(fstream KELMORA_HAVE_CXX_LIBRARY)
if(NOT KELMORA_HAVE_CXX_LIBRARY OR (CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR))
    message(STATUS "kelmora_layout.h is left out: a program for the target cannot be built or run here")
    return()
endif()

add_executable(print-layout-header host/contract/print_layout_header.cpp host/contract/layout.cpp
                                   host/contract/layout_header.cpp host/contract/fields.cpp host/gateway/resources.cpp)
target_include_directories(print-layout-header PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(print-layout-header PRIVATE kelmora_options)

set(KELMORA_LAYOUT_HEADER ${PROJECT_BINARY_DIR}/kelmora_layout.h)
add_custom_command(
    OUTPUT ${KELMORA_LAYOUT_HEADER}
    COMMAND print-layout-header ${KELMORA_LAYOUT_HEADER}
    VERBATIM)
add_custom_target(kelmora_layout_header ALL DEPENDS ${KELMORA_LAYOUT_HEADER})
install(FILES ${KELMORA_LAYOUT_HEADER} DESTINATION ${header_dir})
