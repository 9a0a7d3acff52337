# g++-arm-linux-gnueabihf; the tests run under qemu-user-static.
set(architecture armhf)
set(triplet arm-linux-gnueabihf)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm-static -L "/usr/${triplet}")
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi) # silences notes about an ABI change in GCC 7.1
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
