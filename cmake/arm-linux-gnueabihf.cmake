# 32-bit little-endian ARM, where char has no sign.
set(KELMORA_TRIPLET arm-linux-gnueabihf)
set(KELMORA_QEMU qemu-arm)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi) # gcc tells what changed in its version 7
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
