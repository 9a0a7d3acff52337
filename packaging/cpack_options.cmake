# Read by CPack once for each kind of package.
if(CPACK_MORVEK_SHARED)
  message(FATAL_ERROR "Packages are to run where nothing else is installed: this build uses the "
                      "shared libtelnet. Build with libtelnet.a and libz.a, without BUILD_SHARED_LIBS.")
endif()
if(CPACK_GENERATOR STREQUAL "DEB")
  # All that `cmake --install` installs; under a name, so that its list of files is not that of
  # CPack, which would be overwritten here, or not writable.
  list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build)
  set(CPACK_INSTALL_CMAKE_PROJECTS "${build};morvek;Unspecified;/")
endif()
if(CPACK_GENERATOR STREQUAL "ZIP")
  set(CPACK_PACKAGE_FILE_NAME morvek)
  set(CPACK_COMPONENTS_ALL board)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
  # Boards look for FILE_ID.DIZ at the top.
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
endif()
