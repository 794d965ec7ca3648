# The libraries and programs are linked so that nothing in them can be overwritten or run that should not be, and every object that is
# linked into them carries the marks of its compiler's protections. Run with -DREADELF=... -DBINARIES=... -DOBJECTS=...
function(read result)
    execute_process(COMMAND ${READELF} -W ${ARGN} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
    set(${result} "${listing}" PARENT_SCOPE)
endfunction()

foreach(binary IN LISTS BINARIES)
    read(listing -h -l -d --dyn-syms ${binary})
    foreach(required "Type: +DYN" "GNU_RELRO" "\\(FLAGS_1\\)[^\n]*NOW" "GNU_STACK[^\n]* RW " "__stack_chk_fail")
        if(NOT listing MATCHES "${required}")
            message(SEND_ERROR "${binary} lacks ${required}")
        endif()
    endforeach()
    if(listing MATCHES "TEXTREL")
        message(SEND_ERROR "${binary} has relocations in its code")
    endif()
endforeach()

# The marks of the objects: those of the binaries are lost where the C library's own start-up files have none.
foreach(object IN LISTS OBJECTS)
    read(notes -n ${object})
    if(NOT notes MATCHES "x86 feature: IBT, SHSTK")
        message(SEND_ERROR "${object} lacks control-flow protection")
    endif()
endforeach()
