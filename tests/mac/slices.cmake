include(${CMAKE_CURRENT_LIST_DIR}/macho.cmake)

run(architectures ${LIPO} -archs ${LIBRARY})
findings(architectures "([^ \n]+)" "${architectures}")
expect("slices" "${architectures}" "arm64;x86_64")

load_commands(arm64 arm64 ${LIBRARY})
findings(version "minos ([0-9.]+)" "${arm64}")
expect("oldest system for arm64" "${version}" 11.0)
if(NOT arm64 MATCHES "LC_CODE_SIGNATURE")
    message(SEND_ERROR "arm64 is not signed: no system would load it")
endif()

load_commands(x86_64 x86_64 ${LIBRARY})
findings(version "LC_VERSION_MIN_MACOSX\n *cmdsize 16\n *version ([0-9.]+)" "${x86_64}")
expect("oldest system for x86_64" "${version}" 10.12)

foreach(slice IN ITEMS arm64 x86_64)
    findings(header "(DYLIB +[0-9]+ +[0-9]+ .*TWOLEVEL)" "${${slice}}")
    if(NOT header)
        message(SEND_ERROR "${slice} is no dynamic library with a two-level namespace:\n${${slice}}")
    endif()
endforeach()
