# Installs BUILD into a new folder as a packager does and uses what lies there: the host with its plugins, and the plugin in
# HOST, where pkg-config says that it is. Both run in EMULATOR, where that is set.
file(REMOVE_RECURSE ${FOLDER})
set(prefix ${FOLDER}/opt/chroma)

function(run output)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE text ERROR_VARIABLE errors RESULT_VARIABLE result
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}: ${result}\n${text}\n${errors}")
    endif()
    set(${output} "${text}" PARENT_SCOPE)
endfunction()

set(ENV{DESTDIR} ${FOLDER})
run(installation ${CMAKE_COMMAND} --install ${BUILD} --prefix /opt/chroma)

# From elsewhere, so that nothing comes from the build.
file(WRITE ${FOLDER}/program.bas "Print NSColorZRX.redColor.redComponent\nPrint NSColorZRX.clearColor.colorSpaceName\n")
run(printed ${EMULATOR} ${prefix}/bin/chromahost run ${FOLDER}/program.bas)
if(NOT printed STREQUAL "1\nNSCalibratedWhiteColorSpace")
    message(FATAL_ERROR "the installed host printed: ${printed}")
endif()

file(GLOB_RECURSE package ${prefix}/*/chromabridge.pc)
cmake_path(GET package PARENT_PATH packages)
set(ENV{PKG_CONFIG_PATH} ${packages})
run(plugin pkg-config --variable=plugin chromabridge)
run(includes pkg-config --variable=includedir chromabridge)
file(REAL_PATH ${plugin} plugin)
if(NOT EXISTS ${includes}/chromabridge/host_abi.h OR NOT plugin MATCHES "^${prefix}/")
    message(FATAL_ERROR "pkg-config tells of ${includes} and ${plugin}")
endif()
run(printed ${EMULATOR} ${HOST} ${plugin})
if(NOT printed MATCHES "^red 1.000")
    message(FATAL_ERROR "in the installed plugin: ${printed}")
endif()
file(REMOVE_RECURSE ${FOLDER})
