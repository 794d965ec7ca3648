# The fuzz targets and the code under test, instrumented and linked statically, so that the targets reach symbols that the
# libraries hide. The function check is off, because messages and bound functions are called through pointers to functions
# of other types. The other omitted checks find nothing beyond AddressSanitizer and take a third of the compile time.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize=function,null,object-size,vptr
                    -fno-sanitize-recover=all)
add_link_options(-fsanitize=address,undefined)
enable_testing()
foreach(folder platforms/builtin src sibling host)
    add_subdirectory(${folder} EXCLUDE_FROM_ALL)
endforeach()
# Thousands of small functions that only call others. Instrumented, they take as long to compile as half of the language.
set_source_files_properties(${PROJECT_SOURCE_DIR}/host/model/calls.cpp TARGET_DIRECTORY chromahost_core
                            PROPERTIES COMPILE_OPTIONS -fno-sanitize=undefined)
add_subdirectory(fuzz)
