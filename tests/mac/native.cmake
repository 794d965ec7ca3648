# Tests that run on a Mac with the built library: the self-test, and the load test if GoogleTest is installed.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME selftest
    COMMAND ${Python3_EXECUTABLE} -B ${PROJECT_SOURCE_DIR}/examples/selftest.py $<TARGET_FILE:chromabridge>)

find_package(GTest)
if(GTest_FOUND)
    set(CMAKE_OSX_ARCHITECTURES ${CMAKE_HOST_SYSTEM_PROCESSOR}) # like GoogleTest's library
    set(CMAKE_OSX_DEPLOYMENT_TARGET 11.0)
    add_executable(load_test ${native_sources})
    target_include_directories(load_test PRIVATE ${native_includes})
    target_compile_definitions(load_test PRIVATE
        CHROMA_LIBRARY="$<TARGET_FILE:chromabridge>" CHROMA_SIBLING="$<TARGET_FILE:chromasibling>")
    target_link_libraries(load_test PRIVATE GTest::gtest_main "-framework CoreFoundation")
    add_dependencies(load_test chromabridge chromasibling)
    include(GoogleTest)
    gtest_discover_tests(load_test TEST_PREFIX load_test.)
else()
    message(WARNING "load_test is not built: there is no GoogleTest")
endif()
