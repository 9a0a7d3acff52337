# libtelnet, which speaks the telnet protocol for the door toolkit: the target Telnet::Telnet.
#
# Archives are taken where there are some, since every shared library costs each caller's start a
# little, and only callers on a socket need this one. An archive brings no libraries of its own
# along; libtelnet's needs zlib.
find_path(TELNET_INCLUDE_DIR libtelnet.h)
find_library(TELNET_SHARED_LIBRARY telnet)
set(telnet_found_by TELNET_SHARED_LIBRARY)
if(NOT BUILD_SHARED_LIBS)
  find_library(TELNET_STATIC_LIBRARY libtelnet.a)
  find_library(TELNET_STATIC_ZLIB libz.a)
  if(TELNET_STATIC_LIBRARY AND TELNET_STATIC_ZLIB)
    set(telnet_found_by TELNET_STATIC_LIBRARY)
  endif()
endif()
mark_as_advanced(TELNET_INCLUDE_DIR TELNET_SHARED_LIBRARY TELNET_STATIC_LIBRARY TELNET_STATIC_ZLIB)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Telnet REQUIRED_VARS ${telnet_found_by} TELNET_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "Debian has it as libtelnet-dev")

if(Telnet_FOUND AND NOT TARGET Telnet::Telnet)
  add_library(Telnet::Telnet UNKNOWN IMPORTED)
  set_target_properties(Telnet::Telnet PROPERTIES
    IMPORTED_LOCATION "${${telnet_found_by}}"
    INTERFACE_INCLUDE_DIRECTORIES "${TELNET_INCLUDE_DIR}")
  if(telnet_found_by STREQUAL "TELNET_STATIC_LIBRARY")
    set_target_properties(Telnet::Telnet PROPERTIES INTERFACE_LINK_LIBRARIES "${TELNET_STATIC_ZLIB}")
  endif()
endif()
