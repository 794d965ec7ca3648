# The tests of the other folders that a slice runs.
add_subdirectory(plugin)
add_subdirectory(matrix)
if(NOT CMAKE_CROSSCOMPILING)
    # The host that was built with the plugin loads the slice instead.
    set(CHROMA_HOST_LIST "${PROJECT_SOURCE_DIR}/build/m64/bin/chromahost;--plugin;$<TARGET_FILE:chromabridge-slice>")
    add_subdirectory(programs)
endif()

cmake_path(GET CHROMA_MAC_LIBRARY PARENT_PATH mac_build)
if(NOT CMAKE_CROSSCOMPILING)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    add_test(NAME slice.ArchivePassesItsSelfTest
        COMMAND ${CMAKE_COMMAND} -DCPACK=${CMAKE_CPACK_COMMAND} -DBUILD=${mac_build}/.. -DLIBRARY=${CHROMA_MAC_LIBRARY}
                -DSLICE=$<TARGET_FILE:chromabridge-slice> -DPYTHON=${Python3_EXECUTABLE} -DFOLDER=${CMAKE_CURRENT_BINARY_DIR}/archive
                -P ${CMAKE_CURRENT_LIST_DIR}/archive_check.cmake)
endif()
add_test(NAME slice.InitialisersAreRefused
    COMMAND ${CHROMA_TRANSLATE} ${mac_build}/../tests/mac/initialised.dylib ${CHROMA_SLICE} ${CMAKE_CURRENT_BINARY_DIR}/initialised.S)
set_tests_properties(slice.InitialisersAreRefused PROPERTIES PASS_REGULAR_EXPRESSION "not translated: section __mod_init_func")

# Shows that such runs can fail. A slice with a planted fault, linked before the valid one in the tests' library, fails the
# soak. The faults are: no handlers; saved registers, except for the frame's own, one word away from their place; an import
# replaced by another function.
set(handlers_fault "/\\.cfi_(personality|lsda)/d")
set(handlers_output "a native exception left the function")
set(registers_fault "s/(\\.cfi_offset (3|1[2-5]|19|2[0-8]), -[0-9]+)/\\1-8/")
set(registers_output "call [0-9]+, |crashed with SIG")
set(import_fault "s/ CFRelease\\+0/ CFStringGetLength+0/")
set(import_output "leaked heap blocks")
foreach(fault handlers registers import)
    set(planted ${CMAKE_CURRENT_BINARY_DIR}/mac/slice-${fault}.S)
    add_custom_command(OUTPUT ${planted}
        COMMAND sed -E ${${fault}_fault} ${CHROMA_SLICE_ASSEMBLY} > ${planted}
        DEPENDS ${CHROMA_SLICE_ASSEMBLY} VERBATIM)
    add_executable(soak-${fault} ${planted} $<TARGET_OBJECTS:soak>)
    set_target_properties(soak-${fault} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(soak-${fault} PRIVATE matrix_driver chroma_options)
    add_test(NAME slice.FaultIsDetected.${fault} COMMAND soak-${fault} 10000)
    set_tests_properties(slice.FaultIsDetected.${fault} PROPERTIES PASS_REGULAR_EXPRESSION "${${fault}_output}" TIMEOUT ${CHROMA_LIMIT})
endforeach()
