# Runs a program in the host. Fails if the program leaks or its output is not the expected one.
# -DHOST=... -DPROGRAM=... [-DOPTIONS=...] [-DEXPECTED=file with the output] [-DENDS_IN=pattern of the exception that ends
# it]
execute_process(COMMAND ${HOST} run --check-leaks ${OPTIONS} ${PROGRAM} OUTPUT_VARIABLE output ERROR_VARIABLE errors
                RESULT_VARIABLE result)
if(ENDS_IN)
    if(result EQUAL 0 OR NOT errors MATCHES "uncaught .*${ENDS_IN}")
        message(FATAL_ERROR "expected to end in: ${ENDS_IN}\nended with ${result}:\n${errors}")
    endif()
elseif(NOT result EQUAL 0)
    message(FATAL_ERROR "ended with ${result}:\n${errors}")
endif()
if(EXPECTED)
    file(READ ${EXPECTED} expected)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${output}")
    endif()
elseif(NOT output)
    message(FATAL_ERROR "printed nothing")
endif()
