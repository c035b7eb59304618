# What a build can choose, and the compiler flags that follow from it.

option(KELMORA_RELEASE_ALL "Release every parsed document, also those of the known leaks" OFF)
option(KELMORA_DIRECT_TEXT "Write JSON straight into the host's buffer, not by way of jansson's values" OFF)
set(KELMORA_HOST_PRIVATE_POINTERS 2 CACHE STRING "Pointers of the host's own in front of a resource node's fields")
set(KELMORA_TR069_HOST_BLOCK_SIZE 4 CACHE STRING "Bytes of the host's own inside the record of tr069_config")
set(KELMORA_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
option(KELMORA_BUILD_FUZZERS "Build the fuzzers, and the library ready for them; with clang" OFF)
option(KELMORA_BUILD_BENCH "Build the benchmarks" OFF)
option(KELMORA_COVERAGE "Count which of the library's lines and branches run; the tests alone can be built" OFF)
set(KELMORA_OPTIMIZATION -Os CACHE STRING "How the compiler optimizes the library")
option(KELMORA_BUILD_HOST "Build kelmora-host, the development host, where its dependencies are" ON)
option(KELMORA_BUILD_TESTS "Build the tests, which need the development host, where their dependencies are" ON)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# All of this project's code.
add_library(kelmora_options INTERFACE)
target_compile_options(
    kelmora_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wundef -Wvla
                              -Wcast-qual -Wcast-align -Wformat=2)
target_compile_options(
    kelmora_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual>)
target_compile_definitions(
    kelmora_options INTERFACE KELMORA_HOST_PRIVATE_POINTERS=${KELMORA_HOST_PRIVATE_POINTERS}
                              KELMORA_TR069_HOST_BLOCK_SIZE=${KELMORA_TR069_HOST_BLOCK_SIZE}
                              $<$<BOOL:${KELMORA_RELEASE_ALL}>:KELMORA_RELEASE_ALL>)
if(NOT KELMORA_SANITIZE STREQUAL "")
    set(sanitize -fsanitize=${KELMORA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(kelmora_options INTERFACE ${sanitize})
    target_link_options(kelmora_options INTERFACE ${sanitize})
endif()

# What goes into the plug-in: small, hidden, without any run-time support of the compiler's or the C++ library's.
add_library(kelmora_library_options INTERFACE)
target_compile_options(
    kelmora_library_options
    INTERFACE ${KELMORA_OPTIMIZATION}
              -ffunction-sections
              -fdata-sections
              -fvisibility=hidden
              -fno-stack-protector
              -U_FORTIFY_SOURCE
              $<$<STREQUAL:${CMAKE_SYSTEM_PROCESSOR},x86_64>:-fno-builtin-memcpy
              -fno-builtin-memset
              -fno-builtin-strlen> # at -Os gcc would have them go byte by byte, inline
              $<$<BOOL:${KELMORA_COVERAGE}>:--coverage>
              $<$<BOOL:${KELMORA_BUILD_FUZZERS}>:-fsanitize=fuzzer-no-link>
              $<$<COMPILE_LANGUAGE:CXX>:-fvisibility-inlines-hidden
              -fno-exceptions
              -fno-rtti
              -fno-threadsafe-statics>)
