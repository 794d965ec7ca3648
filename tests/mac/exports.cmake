include(${CMAKE_CURRENT_LIST_DIR}/macho.cmake)

foreach(slice IN ITEMS arm64 x86_64)
    run(symbols ${NM} --arch=${slice} --defined-only --extern-only ${LIBRARY})
    findings(names "[0-9a-f] [A-Za-z] ([^ \n]+)" "${symbols}")
    expect("exports of ${slice}" "${names}" _REALPluginMain)
endforeach()
