# Read by CPack once for each kind of package.
if(CPACK_MORVEK_SHARED)
  message(FATAL_ERROR "This build uses the shared libtelnet, which the packages must not need. "
                      "Build with libtelnet.a and libz.a, without BUILD_SHARED_LIBS.")
endif()
if(CPACK_GENERATOR STREQUAL "DEB")
  # The same files as `cmake --install`, but as a named component: its list of files is not
  # install_manifest.txt, which CPack would otherwise overwrite or could not write.
  list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build)
  set(CPACK_INSTALL_CMAKE_PROJECTS "${build};morvek;Unspecified;/")
endif()
if(CPACK_GENERATOR STREQUAL "ZIP")
  set(CPACK_PACKAGE_FILE_NAME morvek)
  set(CPACK_COMPONENTS_ALL board)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
  # Boards expect FILE_ID.DIZ at the top level.
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
endif()
