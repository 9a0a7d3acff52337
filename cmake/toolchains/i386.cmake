# g++-i686-linux-gnu. An amd64 processor runs the programs, but its system has no loader for them,
# so they name the compiler's one.
set(architecture i386)
set(triplet i686-linux-gnu)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-Wl,--dynamic-linker=/usr/${triplet}/lib/ld-linux.so.2 -Wl,-rpath,/usr/${triplet}/lib")
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
