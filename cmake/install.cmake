# Installation: the plugins and their platform as libraries, the reference host, the ABI header, and a pkg-config file that tells
# hosts where the plugin lies.
include(GNUInstallDirs)

install(TARGETS chromabridge chroma_platform chromasibling chromaprobe LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(TARGET chromapng)
    install(TARGETS chromapng LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(TARGETS chromahost RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/chromabridge/host_abi.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/chromabridge)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Paths relative to the file itself, so that the tree can be moved after it was installed.
file(RELATIVE_PATH prefix_from_package /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" CHROMA_PREFIX_FROM_PC ${prefix_from_package})
configure_file(${PROJECT_SOURCE_DIR}/cmake/chromabridge.pc.in ${PROJECT_BINARY_DIR}/chromabridge.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/chromabridge.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Where the library folder is not lib, as on systems with one for each architecture, the host must find it too.
file(RELATIVE_PATH libraries /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_property(TARGET chromahost APPEND PROPERTY INSTALL_RPATH "$ORIGIN/${libraries}")
target_compile_definitions(chromahost_core PRIVATE CHROMA_INSTALLED_LIBRARIES="${libraries}")
