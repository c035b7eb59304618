# What must be there from outside: jansson's header for the library; jansson, CLI11, {fmt} and RapidJSON for the
# development host, cpp-httplib and CodeMirror for its server and page, and libelf for its verb doctor; and GoogleTest for
# the tests: its source (Debian's package of it), so that it is built for the same machine and with the same flags as the
# tests, or else an installed one. The benchmarks take callgrind's header, and the other libraries that they compare with
# where these are.

# kelmora_find(path|library VARIABLE NAME): find_path or find_library. In a build for another machine never in the build
# machine's own folders, whatever the toolchain file says of them: what it names (CMAKE_PREFIX_PATH, the variable itself)
# and below its roots.
macro(kelmora_find kind variable name)
    if(NOT CMAKE_CROSSCOMPILING)
        cmake_language(CALL find_${kind} ${variable} ${name})
    else()
        cmake_language(CALL find_${kind} ${variable} ${name} NO_CMAKE_SYSTEM_PATH NO_SYSTEM_ENVIRONMENT_PATH)
        if(CMAKE_FIND_ROOT_PATH OR CMAKE_SYSROOT)
            cmake_language(CALL find_${kind} ${variable} ${name} ONLY_CMAKE_FIND_ROOT_PATH)
        endif()
    endif()
endmacro()

kelmora_find(path JANSSON_INCLUDE_DIR jansson.h)
if(NOT JANSSON_INCLUDE_DIR)
    message(FATAL_ERROR "jansson.h not found: name the folder that has it for this target (-D JANSSON_INCLUDE_DIR=...), or "
                        "its prefix (-D CMAKE_PREFIX_PATH=...)")
endif()
kelmora_find(library JANSSON_LIBRARY jansson)
kelmora_find(path CLI11_INCLUDE_DIR CLI/CLI.hpp)
kelmora_find(path FMT_INCLUDE_DIR fmt/color.h)
find_path(CODEMIRROR_DIR lib/codemirror.js PATHS /usr/share/javascript/codemirror NO_DEFAULT_PATH
                                                 NO_CMAKE_FIND_ROOT_PATH)
kelmora_find(path CALLGRIND_INCLUDE_DIR valgrind/callgrind.h)
kelmora_find(path CJSON_INCLUDE_DIR cjson/cJSON.h)
kelmora_find(library CJSON_LIBRARY cjson)
kelmora_find(path JSON_C_INCLUDE_DIR json-c/json.h)
kelmora_find(library JSON_C_LIBRARY json-c)
kelmora_find(path RAPIDJSON_INCLUDE_DIR rapidjson/document.h)
kelmora_find(path LIBELF_INCLUDE_DIR gelf.h)
kelmora_find(library LIBELF_LIBRARY elf)
kelmora_find(path NLOHMANN_JSON_INCLUDE_DIR nlohmann/json.hpp)
find_path(GOOGLETEST_SOURCE_DIR googletest/CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH
                                                                NO_CMAKE_FIND_ROOT_PATH)
if(NOT GOOGLETEST_SOURCE_DIR)
    find_package(GTest CONFIG QUIET)
endif()

set(KELMORA_HAVE_HOST_DEPENDENCIES OFF)
if(JANSSON_LIBRARY AND CLI11_INCLUDE_DIR AND FMT_INCLUDE_DIR AND RAPIDJSON_INCLUDE_DIR)
    set(KELMORA_HAVE_HOST_DEPENDENCIES ON)
elseif(KELMORA_BUILD_HOST)
    message(WARNING "jansson, CLI11, {fmt} or RapidJSON not found: the development host and the tests are left out")
endif()

# The HTTP library's options change its types, so they must be those that it was built with.
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND AND NOT CMAKE_CROSSCOMPILING)
    pkg_check_modules(HTTPLIB QUIET IMPORTED_TARGET cpp-httplib)
endif()
if(NOT TARGET PkgConfig::HTTPLIB AND NOT CMAKE_CROSSCOMPILING)
    message(WARNING "cpp-httplib or pkg-config not found: kelmora-host is without its server")
endif()

set(KELMORA_HAVE_TEST_DEPENDENCIES OFF)
if(KELMORA_HAVE_HOST_DEPENDENCIES AND (GOOGLETEST_SOURCE_DIR OR TARGET GTest::gmock_main))
    set(KELMORA_HAVE_TEST_DEPENDENCIES ON)
elseif(KELMORA_HAVE_HOST_DEPENDENCIES)
    message(WARNING "GoogleTest not found: the tests are left out")
endif()

set(KELMORA_HAVE_OTHER_LIBRARIES OFF)
if(CJSON_INCLUDE_DIR AND CJSON_LIBRARY AND JSON_C_INCLUDE_DIR AND JSON_C_LIBRARY AND RAPIDJSON_INCLUDE_DIR
   AND NLOHMANN_JSON_INCLUDE_DIR)
    set(KELMORA_HAVE_OTHER_LIBRARIES ON)
endif()

add_library(jansson::headers INTERFACE IMPORTED)
target_include_directories(jansson::headers INTERFACE ${JANSSON_INCLUDE_DIR})

if(JANSSON_LIBRARY)
    add_library(jansson::jansson SHARED IMPORTED)
    set_target_properties(jansson::jansson PROPERTIES IMPORTED_LOCATION ${JANSSON_LIBRARY}
                                                      INTERFACE_INCLUDE_DIRECTORIES ${JANSSON_INCLUDE_DIR})
endif()
