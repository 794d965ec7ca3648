# Fails when the program ends well, or badly without what tells that the fault was met. -DPROGRAM=... as a list, with its arguments
# -DTELLING=... a pattern of what it says or how it ends
execute_process(COMMAND ${PROGRAM} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors TIMEOUT 100)
if(result EQUAL 0 OR NOT "${result}\n${output}${errors}" MATCHES "${TELLING}")
    message(FATAL_ERROR "the fault goes unseen; ended with ${result}:\n${output}${errors}")
endif()
