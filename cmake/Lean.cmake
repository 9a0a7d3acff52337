# Every caller starts a program of his own and looks at a first screen: it should be there at once,
# and take little memory, also when twenty play. So the program carries the C++ runtime instead of
# loading it (the C library stays the system's own), and what it carries is put where it costs
# nothing until it is used:
#
# - What is never called is left out.
# - The libraries' part is kept apart, behind our own (lean.ld). A system fetches a file's pages in
#   groups of 64 kB around one that is touched; without this, each group with some of our code in it
#   would bring code that few callers ever need.
# - The groups begin where the program's parts do, at multiples of 64 kB, and all that is only read
#   is one part.
#
# What it comes to is measured by bench/compare.
include(CheckLinkerFlag)

add_compile_options(-ffunction-sections -fdata-sections)

# morvek_lean(TARGET): links the program so.
function(morvek_lean target)
  target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/lean_terminate.cpp")
  target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc -Wl,--gc-sections)
  set(script "${PROJECT_SOURCE_DIR}/cmake/lean.ld")
  set_target_properties(${target} PROPERTIES LINK_DEPENDS "${script}")
  foreach(flag -Wl,-z,noseparate-code -Wl,-z,max-page-size=65536 "-Wl,-T,${script}")
    string(MAKE_C_IDENTIFIER "LINKER_TAKES${flag}" known)
    check_linker_flag(CXX "${flag}" "${known}")
    if(${known})
      target_link_options(${target} PRIVATE "${flag}")
    endif()
  endforeach()
endfunction()
