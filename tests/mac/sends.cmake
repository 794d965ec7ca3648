include(${CMAKE_CURRENT_LIST_DIR}/macho.cmake)

function(expect_sent_by expected architecture file)
    run(symbols ${NM} --arch=${architecture} --undefined-only ${file})
    findings(sent "(_objc_msg[A-Za-z_]+)" "${symbols}")
    expect("${file} sends on ${architecture} by" "${sent}" ${expected})
endfunction()

foreach(architecture IN ITEMS arm64 x86_64)
    expect_sent_by(_objc_msgSend ${architecture} ${SEND_VOID})
    expect_sent_by(_objc_msgSend ${architecture} ${SEND_DOUBLE})
endforeach()
expect_sent_by(_objc_msgSend i386 ${SEND_VOID_I386})
expect_sent_by(_objc_msgSend_fpret i386 ${SEND_DOUBLE_I386})
