# What the toolchain files of Debian's cross compilers have in common. Before it is included KELMORA_TRIPLET says for which
# machine (the package is g++-TRIPLET), and KELMORA_QEMU which program of qemu-user runs what was built. The JSON library is
# at build/MACHINE-sysroot (scripts/build-sysroot.sh), where MACHINE is the triplet's first word.
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${KELMORA_TRIPLET})
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${KELMORA_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${KELMORA_TRIPLET}-g++)

get_filename_component(KELMORA_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/${CMAKE_SYSTEM_PROCESSOR}-sysroot" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "${KELMORA_SYSROOT}" /usr/${KELMORA_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${KELMORA_QEMU} -L /usr/${KELMORA_TRIPLET})
