# g++-aarch64-linux-gnu; the tests run under qemu-user-static.
set(architecture arm64)
set(triplet aarch64-linux-gnu)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static -L "/usr/${triplet}")
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
