include(${CMAKE_CURRENT_LIST_DIR}/macho.cmake)

set(system_libraries
    /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit
    /System/Library/Frameworks/CoreFoundation.framework/Versions/A/CoreFoundation
    /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation
    /usr/lib/libSystem.B.dylib
    /usr/lib/libc++.1.dylib
    /usr/lib/libobjc.A.dylib)

foreach(slice IN ITEMS arm64 x86_64)
    load_commands(commands ${slice} ${LIBRARY})
    findings(name "LC_ID_DYLIB\n[^\n]+\n *name ([^ \n]+)" "${commands}")
    expect("${slice}'s own name" "${name}" @rpath/chromabridge.dylib)
    findings(libraries "LC_[A-Z_]*DYLIB\n[^\n]+\n *name (/[^ \n]+)" "${commands}")
    expect("libraries that ${slice} loads" "${libraries}" "${system_libraries}")
    if(commands MATCHES "LC_RPATH")
        message(SEND_ERROR "${slice} searches folders of its own")
    endif()
endforeach()

file(STRINGS ${LIBRARY} places REGEX "${BUILD}|${SOURCE}")
expect("folders of the machine that built it" "${places}" "")
