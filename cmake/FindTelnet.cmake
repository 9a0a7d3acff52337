# libtelnet, the telnet protocol of the door toolkit: the target Telnet::Telnet.
#
# The static library is preferred: a shared one slows down every start, only callers on a socket
# need it, and programs run where libtelnet is not installed. It also needs zlib's static library.
# The shared library is used if there is no static one, and with BUILD_SHARED_LIBS.
find_path(TELNET_INCLUDE_DIR libtelnet.h)
find_library(TELNET_SHARED_LIBRARY telnet)
set(telnet_found_by TELNET_SHARED_LIBRARY)
set(telnet_hint "Debian has it as libtelnet-dev")
if(NOT BUILD_SHARED_LIBS)
  find_library(TELNET_STATIC_LIBRARY libtelnet.a)
  find_library(TELNET_STATIC_ZLIB libz.a)
  if(TELNET_STATIC_LIBRARY)
    set(telnet_found_by TELNET_STATIC_LIBRARY TELNET_STATIC_ZLIB)
    if(NOT TELNET_STATIC_ZLIB)
      set(telnet_hint "libtelnet.a needs libz.a, which Debian has as zlib1g-dev")
    endif()
  endif()
endif()
mark_as_advanced(TELNET_INCLUDE_DIR TELNET_SHARED_LIBRARY TELNET_STATIC_LIBRARY TELNET_STATIC_ZLIB)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Telnet REQUIRED_VARS ${telnet_found_by} TELNET_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "${telnet_hint}")

if(Telnet_FOUND AND NOT TARGET Telnet::Telnet)
  add_library(Telnet::Telnet UNKNOWN IMPORTED)
  set_target_properties(Telnet::Telnet PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${TELNET_INCLUDE_DIR}")
  if(telnet_found_by STREQUAL "TELNET_SHARED_LIBRARY")
    set_target_properties(Telnet::Telnet PROPERTIES IMPORTED_LOCATION "${TELNET_SHARED_LIBRARY}")
  else()
    set_target_properties(Telnet::Telnet PROPERTIES
      IMPORTED_LOCATION "${TELNET_STATIC_LIBRARY}"
      INTERFACE_LINK_LIBRARIES "${TELNET_STATIC_ZLIB}")
  endif()
endif()
