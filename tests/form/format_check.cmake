# Checks that every file of the tree SOURCE is formatted as CLANG_FORMAT formats it.
file(GLOB_RECURSE files ${SOURCE}/*.h ${SOURCE}/*.cpp ${SOURCE}/*.c ${SOURCE}/*.m)
list(FILTER files EXCLUDE REGEX "^${SOURCE}/build/")
execute_process(COMMAND ${CLANG_FORMAT} --dry-run -Werror ${files} COMMAND_ERROR_IS_FATAL ANY)
