# An installed door toolkit with the interface of OpenDoor.h: the target ODoors. ODOORS_ROOT, a
# variable of CMake or of the environment, is the prefix of its installation.
find_path(ODOORS_INCLUDE_DIR OpenDoor.h
  HINTS "${ODOORS_ROOT}" ENV ODOORS_ROOT PATH_SUFFIXES include)
find_library(ODOORS_LIBRARY NAMES ODoors odoors
  HINTS "${ODOORS_ROOT}" ENV ODOORS_ROOT PATH_SUFFIXES lib "lib/${CMAKE_LIBRARY_ARCHITECTURE}" lib64)
mark_as_advanced(ODOORS_INCLUDE_DIR ODOORS_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(ODoors REQUIRED_VARS ODOORS_LIBRARY ODOORS_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "ODOORS_ROOT names the prefix to look in")

if(ODoors_FOUND AND NOT TARGET ODoors)
  add_library(ODoors UNKNOWN IMPORTED GLOBAL)
  set_target_properties(ODoors PROPERTIES
    IMPORTED_LOCATION "${ODOORS_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${ODOORS_INCLUDE_DIR}")
  # A static library does not name the libraries that it needs; ours needs libtelnet.
  if(ODOORS_LIBRARY MATCHES "\\.a$")
    find_package(Telnet)
    if(Telnet_FOUND)
      set_target_properties(Telnet::Telnet PROPERTIES IMPORTED_GLOBAL TRUE)
      set_target_properties(ODoors PROPERTIES INTERFACE_LINK_LIBRARIES Telnet::Telnet)
    endif()
  endif()
endif()
