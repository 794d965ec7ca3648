# Installation on a Mac, and the archive that `cpack -G TGZ` creates from it: the library, the files that a host needs, and
# the self-test of the library.
install(TARGETS chromabridge LIBRARY DESTINATION .)
install(FILES ${PROJECT_SOURCE_DIR}/include/chromabridge/host_abi.h DESTINATION include/chromabridge)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/examples/host.py ${PROJECT_SOURCE_DIR}/examples/selftest.py DESTINATION .)

# The instructions are a section of the page about platforms.
file(READ ${PROJECT_SOURCE_DIR}/docs/platforms.md page)
string(REGEX REPLACE ".*\n##(# Installing on a Mac\n)" "\\1" instructions "${page}")
string(REGEX REPLACE "\n##+ .*" "\n" instructions "${instructions}")
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/INSTALL.md CONTENT "${instructions}" @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/platforms.md)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_BINARY_DIR}/INSTALL.md DESTINATION .)

set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_FILE_NAME chromabridge-${PROJECT_VERSION}-macos)
include(CPack)
