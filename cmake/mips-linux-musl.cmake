# The target with musl in place of glibc: Debian's cross compiler for glibc, with the headers, the start files and the
# library of build/musl-sysroot (scripts/build-musl-sysroot.sh), and qemu-mips to run what it built.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mips)
set(CMAKE_C_COMPILER mips-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER mips-linux-gnu-gcc) # not g++, which links a C++ library: there is none for musl

get_filename_component(KELMORA_MUSL_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/musl-sysroot" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "${KELMORA_MUSL_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's own folders of headers are left out, so the C++ headers are named again, behind the C library's. They are
# configured for glibc, and ask which one it is.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=include OUTPUT_VARIABLE gcc_include
                OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(gcc_version "${gcc_include}/.." REALPATH)
get_filename_component(gcc_version "${gcc_version}" NAME)
set(cxx_include /usr/mips-linux-gnu/include/c++/${gcc_version})
set(specs "-specs=${KELMORA_MUSL_SYSROOT}/lib/musl-gcc.specs")
set(CMAKE_C_FLAGS_INIT "${specs}")
set(CMAKE_CXX_FLAGS_INIT
    "${specs} -isystem ${cxx_include} -isystem ${cxx_include}/mips-linux-gnu \"-D__GLIBC_PREREQ(major,minor)=0\"")

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mips -L ${KELMORA_MUSL_SYSROOT})
