# Checks that libraries and programs are linked with protections against overwritten tables and executable data. Every
# object linked into them must have the marks of its compiler's protections.
function(read result)
    execute_process(COMMAND ${READELF} -W ${ARGN} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
    set(${result} "${listing}" PARENT_SCOPE)
endfunction()

foreach(binary IN LISTS BINARIES)
    read(listing -h -l -d --dyn-syms ${binary})
    foreach(required "Type: +DYN" "GNU_RELRO" "\\(FLAGS_1\\)[^\n]*NOW" "GNU_STACK[^\n]* RW " "__stack_chk_fail")
        if(NOT listing MATCHES "${required}")
            message(SEND_ERROR "${binary} does not have ${required}")
        endif()
    endforeach()
    if(listing MATCHES "TEXTREL")
        message(SEND_ERROR "${binary} has relocations in its code")
    endif()
endforeach()

# Checks the marks of the objects. The linker drops them from the binaries if the C library's start-up files have none.
foreach(object IN LISTS OBJECTS)
    read(notes -n ${object})
    if(NOT notes MATCHES "x86 feature: IBT, SHSTK")
        message(SEND_ERROR "${object} does not have control-flow protection")
    endif()
endforeach()
