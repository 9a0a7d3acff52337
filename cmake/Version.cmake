# MORVEK_VERSION: the version of the programs and packages. A build from git has a version of its
# own, which sorts after those of older commits: 0.6.9+git20261122.154500.0f1714d, with the commit's
# date and time (UTC). Without git it is the project's version.
#
# Only the sources that print it get the definition, so a commit does not recompile the others.
set(MORVEK_VERSION "${PROJECT_VERSION}")

find_program(MORVEK_GIT git)
mark_as_advanced(MORVEK_GIT)
# Works also if the files belong to another user.
set(git "${MORVEK_GIT}" -c "safe.directory=${PROJECT_SOURCE_DIR}" -C "${PROJECT_SOURCE_DIR}")

# Only the project's own repository, not one that contains its folder.
if(MORVEK_GIT AND EXISTS "${PROJECT_SOURCE_DIR}/.git")
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env TZ=UTC0
            ${git} log -1 --abbrev=7 --date=format-local:%Y%m%d.%H%M%S --format=+git%cd.%h
    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  string(APPEND MORVEK_VERSION "${commit}")
  execute_process(COMMAND ${git} rev-parse --path-format=absolute --git-path logs/HEAD
                  OUTPUT_VARIABLE commits OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(EXISTS "${commits}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${commits}")
  endif()
endif()
