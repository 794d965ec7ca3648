# The fuzz targets and what they are made of, instrumented and linked statically, so that they reach what the libraries hide. Calls
# through pointers to functions of other types are how messages are sent and bound functions called; the other checks left out see
# what AddressSanitizer sees, and take a third of the time to compile.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize=function,null,object-size,vptr
                    -fno-sanitize-recover=all)
add_link_options(-fsanitize=address,undefined)
enable_testing()
foreach(folder platforms/builtin src sibling host)
    add_subdirectory(${folder} EXCLUDE_FROM_ALL)
endforeach()
# Thousands of small functions that only call others; instrumented, they take as long to compile as the half of the language.
set_source_files_properties(${PROJECT_SOURCE_DIR}/host/model/calls.cpp TARGET_DIRECTORY chromahost_core
                            PROPERTIES COMPILE_OPTIONS -fno-sanitize=undefined)
target_compile_definitions(chromahost_core PRIVATE CHROMA_INSTALLED_LIBRARIES="../lib")
add_subdirectory(fuzz)
