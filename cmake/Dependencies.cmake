# What must be there from outside: jansson's header for the library, jansson and CLI11 for the development host,
# GoogleTest's source (Debian's package of it) for the tests, which are built with this project's own flags.

find_path(JANSSON_INCLUDE_DIR jansson.h REQUIRED)
find_library(JANSSON_LIBRARY jansson)
find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp)
find_path(GOOGLETEST_SOURCE_DIR googletest/CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH
                                                                NO_CMAKE_FIND_ROOT_PATH)

set(KELMORA_HAVE_HOST_DEPENDENCIES OFF)
if(JANSSON_LIBRARY AND CLI11_INCLUDE_DIR)
    set(KELMORA_HAVE_HOST_DEPENDENCIES ON)
else()
    message(WARNING "jansson or CLI11 not found: the development host and the tests are left out")
endif()

set(KELMORA_HAVE_TEST_DEPENDENCIES OFF)
if(KELMORA_HAVE_HOST_DEPENDENCIES AND GOOGLETEST_SOURCE_DIR)
    set(KELMORA_HAVE_TEST_DEPENDENCIES ON)
elseif(KELMORA_HAVE_HOST_DEPENDENCIES)
    message(WARNING "GoogleTest's source not found: the tests are left out")
endif()

add_library(jansson::headers INTERFACE IMPORTED)
target_include_directories(jansson::headers INTERFACE ${JANSSON_INCLUDE_DIR})

if(JANSSON_LIBRARY)
    add_library(jansson::jansson SHARED IMPORTED)
    set_target_properties(jansson::jansson PROPERTIES IMPORTED_LOCATION ${JANSSON_LIBRARY}
                                                      INTERFACE_INCLUDE_DIRECTORIES ${JANSSON_INCLUDE_DIR})
endif()
