# The target: 32-bit big-endian MIPS Linux.
set(KELMORA_TRIPLET mips-linux-gnu)
set(KELMORA_QEMU qemu-mips)
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
