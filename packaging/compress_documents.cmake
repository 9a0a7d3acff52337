# Run by CPack in the tree to be packed. Debian requires man pages and the changelog to be
# compressed, without a timestamp.
if(CPACK_GENERATOR STREQUAL "DEB")
  file(GLOB_RECURSE documents "${CPACK_TEMPORARY_DIRECTORY}/*.[1-8]"
       "${CPACK_TEMPORARY_DIRECTORY}/CHANGELOG.md")
  foreach(document IN LISTS documents)
    execute_process(COMMAND gzip -9n "${document}" COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  file(GLOB_RECURSE changes "${CPACK_TEMPORARY_DIRECTORY}/CHANGELOG.md.gz")
  foreach(change IN LISTS changes)
    string(REPLACE CHANGELOG.md.gz changelog.gz debian_name "${change}")
    file(RENAME "${change}" "${debian_name}")
  endforeach()
endif()
