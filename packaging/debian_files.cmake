# What a Debian package has beside what is installed: run by cpack when the tree of the package is laid.
file(GLOB_RECURSE programs ${CPACK_TEMPORARY_DIRECTORY}/*/bin/chromahost)
foreach(program IN LISTS programs)
    cmake_path(GET program PARENT_PATH folder)
    cmake_path(GET folder PARENT_PATH prefix)
    set(documents ${prefix}/share/doc/chromabridge)
    configure_file(${CPACK_CHROMA_COPYRIGHT} ${documents}/copyright COPYONLY)
    file(REMOVE ${documents}/LICENSE) # it says the same
    file(READ ${documents}/README.md readme)
    string(REPLACE "](LICENSE)" "](copyright)" readme "${readme}")
    file(WRITE ${documents}/README.md "${readme}")
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
    file(WRITE ${documents}/changelog "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n"
         "  * CHANGELOG.md tells what is new.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    file(GLOB pages ${prefix}/share/man/man1/*.1)
    execute_process(COMMAND gzip -9nf ${documents}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
