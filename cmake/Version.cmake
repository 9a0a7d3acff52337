# MORVEK_VERSION: what the programs and packages call this build. A build from git has a version of its
# own, which is newer than that of an older commit: 0.6.9+git20261122.154500.0f1714d, with the
# commit's date and time (UTC). Elsewhere it is the project's version.
#
# It is defined for the few sources that show it, so that a commit recompiles nothing else.
set(MORVEK_VERSION "${PROJECT_VERSION}")

find_program(MORVEK_GIT git)
mark_as_advanced(MORVEK_GIT)
# Also where another user builds than the one who owns the files.
set(git "${MORVEK_GIT}" -c "safe.directory=${PROJECT_SOURCE_DIR}" -C "${PROJECT_SOURCE_DIR}")

# Only a repository of this project's own: not one that its folder happens to lie in.
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
