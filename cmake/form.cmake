# The build that checks the form of the code. It replaces the compiler by clang-tidy and reads each file separately. This
# also finds missing includes that joined files hide. ninja checks several files at a time, and later only changed ones.
# Nothing is linked.
enable_testing()
set(checks ${PROJECT_SOURCE_DIR}/tests/form)
set(tree -DSOURCE=${PROJECT_SOURCE_DIR} -DPAGE=${PROJECT_SOURCE_DIR}/docs/architecture.md)

# chroma_form_tool(NAME VARIABLE TEST) finds the tool in Debian 12's release, which the code follows, because each release
# judges differently. With another release the variable is empty and the test is skipped.
function(chroma_form_tool name variable test)
    find_program(${variable}_PROGRAM NAMES ${name}-14 ${name} REQUIRED)
    execute_process(COMMAND ${${variable}_PROGRAM} --version OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCH "version ([0-9]+)" release "${text}")
    if(CMAKE_MATCH_1 EQUAL 14)
        set(${variable} ${${variable}_PROGRAM} PARENT_SCOPE)
    else()
        set(${variable} "" PARENT_SCOPE)
        add_test(NAME form.${test} COMMAND ${CMAKE_COMMAND} -E echo "skipped: form.${test} needs ${name} 14, and this is ${CMAKE_MATCH_1}")
        set_tests_properties(form.${test} PROPERTIES SKIP_REGULAR_EXPRESSION "^skipped:")
    endif()
endfunction()

chroma_form_tool(clang-format CHROMA_CLANG_FORMAT MatchesClangFormat)
if(CHROMA_CLANG_FORMAT)
    add_test(NAME form.MatchesClangFormat
             COMMAND ${CMAKE_COMMAND} -DCLANG_FORMAT=${CHROMA_CLANG_FORMAT} ${tree} -P ${checks}/format_check.cmake)
endif()
add_test(NAME form.IncludesFollowTheDocumentedDirections COMMAND ${CMAKE_COMMAND} ${tree} -P ${checks}/includes_check.cmake)
add_test(NAME form.CastsAndJumpsAreConfined COMMAND ${CMAKE_COMMAND} ${tree} -P ${checks}/dangers_check.cmake)

chroma_form_tool(clang-tidy CHROMA_CLANG_TIDY PassesClangTidy)
set(test form.FilesCompileSeparately)
set(CMAKE_CXX_COMPILE_OBJECT "<CMAKE_CXX_COMPILER> <DEFINES> <INCLUDES> <FLAGS> -fsyntax-only <SOURCE>" "touch <OBJECT>")
if(CHROMA_CLANG_TIDY)
    set(test form.PassesClangTidy)
    set(CMAKE_CXX_COMPILE_OBJECT
        "<CMAKE_CXX_COMPILER> <DEFINES> <INCLUDES> <FLAGS> -E <SOURCE> -o <OBJECT>" # lists the file's includes for ninja
        "${CHROMA_CLANG_TIDY} --quiet --config-file=${PROJECT_SOURCE_DIR}/.clang-tidy <SOURCE> -- <DEFINES> <INCLUDES> <FLAGS>")
endif()
foreach(rule CREATE_STATIC_LIBRARY CREATE_SHARED_LIBRARY CREATE_SHARED_MODULE LINK_EXECUTABLE)
    set(CMAKE_CXX_${rule} "touch <TARGET>")
endforeach()
set(CHROMA_JOIN OFF)
set(folders platforms/builtin src sibling host)
foreach(folder IN LISTS folders)
    add_subdirectory(${folder} EXCLUDE_FROM_ALL)
endforeach()
list(TRANSFORM folders APPEND /all)
add_test(NAME ${test} COMMAND ${CMAKE_MAKE_PROGRAM} -C ${PROJECT_BINARY_DIR} -k 0 ${folders})
set_tests_properties(${test} PROPERTIES TIMEOUT ${CHROMA_LIMIT})
