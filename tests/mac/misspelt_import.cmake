include(${CMAKE_CURRENT_LIST_DIR}/macho.cmake)

# Only the spelling differs between the two.
run(messages ${CMAKE_COMMAND} --build ${BUILD} --target import-CFRelease)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD} --target import-CFRelaese
    RESULT_VARIABLE result OUTPUT_VARIABLE messages ERROR_VARIABLE messages)
if(result EQUAL 0 OR NOT messages MATCHES "undefined symbol[^\n]*: _CFRelaese")
    message(SEND_ERROR "a misspelt import links, or fails for another reason:\n${messages}")
endif()
