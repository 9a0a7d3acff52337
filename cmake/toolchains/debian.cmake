# Included by the other toolchain files, which set `architecture` (Debian's name for it) and
# `triplet`. Debian's compiler for the triplet has its own C and C++ library; the other libraries
# are in the directory into which tools/compilers extracts Debian's packages of the architecture.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER "${triplet}-gcc")
set(CMAKE_CXX_COMPILER "${triplet}-g++")
get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
set(CMAKE_SYSROOT "${root}/build/libraries/${architecture}")
set(CMAKE_FIND_ROOT_PATH "${root}/build") # for what other builds install there
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
