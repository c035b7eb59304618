# The target: 32-bit big-endian MIPS Linux, with Debian's cross compiler (g++-mips-linux-gnu) and qemu-mips to run
# what it built. The JSON library for the target is at build/mips-sysroot (scripts/build-mips-sysroot.sh).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mips)
set(CMAKE_C_COMPILER mips-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER mips-linux-gnu-g++)

get_filename_component(KELMORA_MIPS_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/mips-sysroot" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "${KELMORA_MIPS_SYSROOT}" /usr/mips-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mips -L /usr/mips-linux-gnu)
