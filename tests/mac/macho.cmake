# Reading Mach-O files with LLVM's tools. Included by the checks, which are run with -DNM=... -DOBJDUMP=... and so on.
cmake_minimum_required(VERSION 3.25)

function(run result)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE messages COMMAND_ERROR_IS_FATAL ANY)
    set(${result} "${output}" PARENT_SCOPE)
endfunction()

# Every part of the text that the expression's group matches, sorted, each once.
function(findings result expression text)
    string(REGEX MATCHALL "${expression}" matches "${text}")
    list(TRANSFORM matches REPLACE "${expression}" "\\1")
    list(REMOVE_DUPLICATES matches)
    list(SORT matches)
    set(${result} "${matches}" PARENT_SCOPE)
endfunction()

function(expect what actual expected)
    if(NOT "${actual}" STREQUAL "${expected}")
        message(SEND_ERROR "${what}: ${actual}\nexpected: ${expected}")
    endif()
endfunction()

function(load_commands result architecture file)
    run(headers ${OBJDUMP} --macho --arch=${architecture} --private-headers ${file})
    set(${result} "${headers}" PARENT_SCOPE)
endfunction()

# What a list of the sysroot offers to an architecture.
function(offered result architecture list)
    run(symbols ${NM} --arch=${architecture} ${list})
    findings(names " S ([^ \n]+)" "${symbols}")
    set(${result} "${names}" PARENT_SCOPE)
endfunction()

file(GLOB lists ${SYSROOT}/usr/lib/*.tbd ${SYSROOT}/System/Library/Frameworks/*.framework/*.tbd)
