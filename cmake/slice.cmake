# A build that tests a slice of the macOS library from the preset `mac`. The slice replaces the plugin. Everything around it
# is built from its sources, as far as the tests need it.
enable_language(ASM)
enable_testing()
foreach(folder platforms/builtin src sibling probe host)
    add_subdirectory(${folder} EXCLUDE_FROM_ALL)
endforeach()
add_subdirectory(tests)
