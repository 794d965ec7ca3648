include(${CMAKE_CURRENT_LIST_DIR}/macho.cmake)

# A function with a second entry is unwound by that one: what the first says of it, its handlers above all, is lost.
foreach(slice IN ITEMS arm64 x86_64)
    run(entries ${OBJDUMP} --macho --arch=${slice} --unwind-info ${LIBRARY})
    string(REGEX MATCHALL "function offset=0x[0-9a-f]+, encoding" offsets "${entries}")
    findings(functions "function offset=(0x[0-9a-f]+), encoding" "${entries}")
    list(LENGTH offsets count)
    list(LENGTH functions expected)
    expect("entries of ${slice}, by function" ${count} ${expected})
    if(count LESS 100)
        message(SEND_ERROR "${slice} has only ${count} entries")
    endif()
endforeach()
