# Starts `program`, which has to be running still after a second.
execute_process(COMMAND ${program} TIMEOUT 1 RESULT_VARIABLE result)
if(NOT result MATCHES "timeout")
    message(FATAL_ERROR "${program} ended by itself: ${result}")
endif()
