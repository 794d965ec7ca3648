# Runs a program in the host and fails when it leaves anything behind or prints something unexpected.
# -DHOST=... -DPROGRAM=... [-DOPTIONS=...] [-DEXPECTED=file with the output]
execute_process(COMMAND ${HOST} run --check-leaks ${OPTIONS} ${PROGRAM} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(EXPECTED)
    file(READ ${EXPECTED} expected)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${output}")
    endif()
elseif(NOT output)
    message(FATAL_ERROR "printed nothing")
endif()
