# Checks that the library exports only its entry point and imports only the platform's interface and the C and C++ runtime.
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
    # Versioned names belong to the C and C++ runtime. Names that start with two underscores belong to it or a sanitizer.
    if(NOT name MATCHES "@(GLIBC|GLIBCXX|CXXABI|GCC)" AND NOT name MATCHES "^(__|_ITM_)")
        message(FATAL_ERROR "imported from an unknown library: ${name}")
    endif()
endforeach()
