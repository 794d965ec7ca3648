# The .deb: cpack --config build/m64/CPackConfig.cmake
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME chromabridge)
set(CPACK_PACKAGE_VENDOR "the chromabridge authors")
# A reserved domain that has no mailbox, because nobody handles mail yet.
set(CPACK_PACKAGE_CONTACT "the chromabridge authors <maintainers@chromabridge.invalid>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES OFF) # the package of debug symbols extracts them first
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "AppKit's colours for programs of a BASIC-like host language")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "A plugin library that gives programs of a host development environment
three classes around colours, colour spaces and colour lists, a small
platform for it, and a reference host, chromahost, with which
to try it: it runs programs, explains classes and draws colours.

For authors of hosts it contains the ABI header and a plugin that
tests whether a host implements the contract.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian_files.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian_packages.cmake)
set(CPACK_CHROMA_DATE ${CHROMA_DATE})
set(CPACK_CHROMA_COPYRIGHT ${PROJECT_SOURCE_DIR}/packaging/copyright)
set(CPACK_CHROMA_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
include(CPack)
