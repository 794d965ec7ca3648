# Every file of the tree SOURCE has the form that CLANG_FORMAT gives it.
file(GLOB_RECURSE files ${SOURCE}/*.h ${SOURCE}/*.cpp ${SOURCE}/*.c ${SOURCE}/*.m)
list(FILTER files EXCLUDE REGEX "^${SOURCE}/build/")
execute_process(COMMAND ${CLANG_FORMAT} --dry-run -Werror ${files} COMMAND_ERROR_IS_FATAL ANY)
