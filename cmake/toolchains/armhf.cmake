# g++-arm-linux-gnueabihf; the tests run under qemu-user-static.
set(architecture armhf)
set(triplet arm-linux-gnueabihf)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm-static -L "/usr/${triplet}")
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
