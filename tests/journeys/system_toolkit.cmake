# Installs the toolkit of BUILD into a prefix, builds the program of SOURCE with the installed
# toolkit, and plays it. The build stays in BUILD for the next run.
#   cmake -DSOURCE=... -DBUILD=... [-DGENERATOR=... -DCOMPILER=... -DFLAGS=...] -P THIS
set(prefix "${BUILD}/system-toolkit/prefix")
set(game "${BUILD}/system-toolkit/build")

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output
                  ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}: ${status}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${prefix}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --component odoors --prefix "${prefix}")
run("${CMAKE_COMMAND}" -S "${SOURCE}" -B "${game}" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS} -O0" -DCMAKE_BUILD_TYPE=None
    -DMORVEK_TESTS=OFF -DMORVEK_SYSTEM_ODOORS=ON "-DODOORS_ROOT=${prefix}")
run("${CMAKE_COMMAND}" --build "${game}" --target morvek)

file(WRITE "${game}/keys" "hxq")
execute_process(COMMAND "${game}/morvek" -LOCAL WORKING_DIRECTORY "${game}" TIMEOUT 10
                INPUT_FILE "${game}/keys" OUTPUT_VARIABLE shown RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT shown MATCHES "Quit Game")
  message(FATAL_ERROR "The program ended with status ${status} and had shown:\n${shown}")
endif()
