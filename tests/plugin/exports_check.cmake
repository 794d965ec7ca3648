# The library exports its one entry point, and takes nothing from outside but the platform's interface and the C and C++ runtime.
# Run with -DLIBRARY=... -DPLATFORM=... -DNM=...
function(symbols result)
    execute_process(COMMAND ${NM} ${ARGN} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^ \n]+(\n|$)" names "${listing}")
    list(TRANSFORM names STRIP)
    set(${result} ${names} PARENT_SCOPE)
endfunction()

symbols(exported -D --defined-only ${LIBRARY})
if(NOT exported STREQUAL "REALPluginMain")
    message(FATAL_ERROR "exported besides REALPluginMain: ${exported}")
endif()

symbols(platform -D --defined-only ${PLATFORM})
symbols(imported -D --undefined-only ${LIBRARY})
list(REMOVE_ITEM imported ${platform})
foreach(name IN LISTS imported)
    # Versioned names are those of the C and C++ runtime; what starts with two underscores is theirs or a sanitizer's.
    if(NOT name MATCHES "@(GLIBC|GLIBCXX|CXXABI|GCC)" AND NOT name MATCHES "^(__|_ITM_)")
        message(FATAL_ERROR "imported from nowhere known: ${name}")
    endif()
endforeach()
