# What a slice runs of the other folders' tests.
add_subdirectory(plugin)
add_subdirectory(matrix)
if(NOT CMAKE_CROSSCOMPILING)
    # The host that was built with the plugin loads the slice instead.
    set(CHROMA_HOST_LIST "${PROJECT_SOURCE_DIR}/build/m64/bin/chromahost;--plugin;$<TARGET_FILE:chromabridge-slice>")
    add_subdirectory(programs)
endif()
