# A 64-bit big-endian machine, where char has no sign.
set(KELMORA_TRIPLET s390x-linux-gnu)
set(KELMORA_QEMU qemu-s390x)
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
