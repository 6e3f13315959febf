# What the package tests (cmake -P scripts) share.

# Runs a command and stops the test with the command line when it fails.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    list(JOIN ARGN " " cmd)
    message(FATAL_ERROR "failed (${rc}): ${cmd}")
  endif()
endfunction()
