# The library's properties on macOS; included where the plugin's sources are listed.
target_link_libraries(chromabridge PRIVATE chroma_platform)
target_link_options(chromabridge PRIVATE -Wl,-exported_symbol,_REALPluginMain)
# Objects without code end with an empty code section. LLVM's linker gives each such section an unwind entry at the offset
# of the following function, and exceptions would then pass that function by. With -dead_strip the linker drops these
# sections, because nothing refers to them.
target_link_options(chromabridge PRIVATE -Wl,-dead_strip)
set_target_properties(chromabridge PROPERTIES
    PREFIX "" INSTALL_RPATH "" INSTALL_NAME_DIR @rpath BUILD_WITH_INSTALL_NAME_DIR ON
    MACHO_CURRENT_VERSION ${PROJECT_VERSION} MACHO_COMPATIBILITY_VERSION 0)

# LLVM's linker creates __DATA_CONST without the flag that the system's loader requires of that segment, so the segment must
# stay empty. By default only arm64 slices are signed.
if(CMAKE_CROSSCOMPILING)
    target_link_options(chromabridge PRIVATE -Wl,-no_data_const -Wl,-adhoc_codesign)
    set_property(TARGET chromabridge PROPERTY LINK_DEPENDS ${PROJECT_BINARY_DIR}/tools/ld64.lld)
endif()

# The same sources for i386, up to an archive of objects, because the system's linker is not available. Exceptions are jumps
# there.
if(CMAKE_CROSSCOMPILING)
    add_library(chromabridge-i386 STATIC plugin_main.cpp platform/guard_legacy.cpp ${sources}
                                         ${PROJECT_SOURCE_DIR}/platforms/mac/widths.cpp)
    set_target_properties(chromabridge-i386 PROPERTIES
        PREFIX "" OSX_ARCHITECTURES i386 ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
    target_compile_options(chromabridge-i386 PRIVATE -mmacosx-version-min=10.6)
    target_include_directories(chromabridge-i386 PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(chromabridge-i386 PRIVATE chroma_options)
endif()
