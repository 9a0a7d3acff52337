# Every room of the house is a library that names the rooms it may use. A room's headers are
# staged in a directory of their own, so that only the rooms named after USES can be included:
#   #include "state/game_state.h"
# builds only in a room that uses morvek_state.

add_library(morvek_warnings INTERFACE)
target_compile_options(morvek_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${MORVEK_WERROR}>:-Werror>)

# morvek_room(NAME FOLDER SOURCES file.cpp... USES target...)
# A source file brings the header of the same name, when there is one; HEADERS names others.
function(morvek_room name folder)
  cmake_parse_arguments(ROOM "" "" "SOURCES;HEADERS;USES" ${ARGN})
  set(staged "${CMAKE_BINARY_DIR}/include/${name}")
  file(REMOVE_RECURSE "${staged}")
  file(MAKE_DIRECTORY "${staged}/${folder}")
  foreach(source IN LISTS ROOM_SOURCES)
    string(REGEX REPLACE "\\.cpp$" ".h" header "${source}")
    list(APPEND ROOM_HEADERS "${header}")
  endforeach()
  foreach(header IN LISTS ROOM_HEADERS)
    if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${header}")
      file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${header}" "${staged}/${folder}/${header}"
           SYMBOLIC)
    endif()
  endforeach()
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_include_directories(${name} PUBLIC "${staged}")
  target_link_libraries(${name} PRIVATE ${ROOM_USES} morvek_warnings)
endfunction()
