# Steps that the scripts of this folder share. Run with -DBUILD -DSOURCE -DCONFIG -DCOMPILER and
# -DSANITIZE.
set(flags "")
if(SANITIZE)
  set(flags "-fsanitize=${SANITIZE}")
endif()

function(must)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(must_say pattern)
  must(${ARGN})
  if(NOT output MATCHES "${pattern}")
    message(FATAL_ERROR "${ARGN}\nsaid:\n${output}")
  endif()
endfunction()

# Configures and builds a project: build_host(SOURCE FOLDER [OPTION...])
function(build_host source folder)
  must(${CMAKE_COMMAND} -S ${source} -B ${folder} -G Ninja -DCMAKE_BUILD_TYPE=${CONFIG}
       -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${flags} ${ARGN})
  must(${CMAKE_COMMAND} --build ${folder})
endfunction()

# The example, and a program that wants the component alone on a machine without SQLite.
function(build_and_run_hosts folder prefix)
  build_host(${SOURCE}/examples/host ${folder}/host -DCMAKE_PREFIX_PATH=${prefix})
  must_say("1 employee is due on 08/04/2016" ${folder}/host/example_host ${folder}/host/company.db)
  build_host(${SOURCE}/tests/install/component ${folder}/component -DCMAKE_PREFIX_PATH=${prefix}
             -DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON)
  must_say("tax week 1" ${folder}/component/component)
  must(ldd ${folder}/component/component)
  if(output MATCHES "sqlite")
    message(FATAL_ERROR "the component alone asks for SQLite:\n${output}")
  endif()
endfunction()
