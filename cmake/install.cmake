# Installs the plugins and their libraries into a separate folder below the library folder. Also installs the reference
# host, the ABI header, files for shells, editors and readers, and the files by which hosts find the plugin with pkg-config
# and CMake.
include(CMakePackageConfigHelpers)

set(plugins_folder ${CMAKE_INSTALL_LIBDIR}/chromabridge)
set(libraries chromabridge chroma_platform chromasibling chromaprobe)
if(TARGET chromapng)
    list(APPEND libraries chromapng)
endif()
install(TARGETS ${libraries} LIBRARY DESTINATION ${plugins_folder})
install(TARGETS chromahost RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/chromabridge/host_abi.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/chromabridge)

# The pages, with links that are valid in the installed tree.
file(READ ${PROJECT_SOURCE_DIR}/README.md readme)
file(RELATIVE_PATH header /${CMAKE_INSTALL_DOCDIR} /${CMAKE_INSTALL_INCLUDEDIR}/chromabridge/host_abi.h)
string(REPLACE "](include/chromabridge/host_abi.h)" "](${header})" readme "${readme}")
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/README.md CONTENT "${readme}" @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
              ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/platforms/builtin/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/platforms/builtin)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/editors/chromabridge.tmLanguage.json DESTINATION ${CMAKE_INSTALL_DATADIR}/chromabridge)

# The host's completion scripts and its manual page, which it generates.
set(host_command ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:chromahost>)
set(generated ${PROJECT_BINARY_DIR}/completion/chromahost ${PROJECT_BINARY_DIR}/completion/_chromahost
         ${PROJECT_BINARY_DIR}/completion/chromahost.1)
add_custom_command(OUTPUT ${generated}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/completion
    COMMAND ${host_command} completion bash > ${PROJECT_BINARY_DIR}/completion/chromahost
    COMMAND ${host_command} completion zsh > ${PROJECT_BINARY_DIR}/completion/_chromahost
    COMMAND ${host_command} manual > ${PROJECT_BINARY_DIR}/completion/chromahost.1
    DEPENDS chromahost chromabridge chromasibling VERBATIM)
install(FILES ${PROJECT_BINARY_DIR}/completion/chromahost DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${PROJECT_BINARY_DIR}/completion/_chromahost DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${PROJECT_BINARY_DIR}/completion/chromahost.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
add_custom_target(chroma_generated ALL DEPENDS ${generated})
add_custom_target(installed DEPENDS chroma_generated ${libraries} chromahost) # everything that `cmake --install` needs

# Paths relative to the files themselves, so that the installed tree can be moved.
file(RELATIVE_PATH CHROMA_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" CHROMA_PREFIX_FROM_PC ${CHROMA_PREFIX_FROM_PC})
configure_file(${PROJECT_SOURCE_DIR}/cmake/chromabridge.pc.in ${PROJECT_BINARY_DIR}/chromabridge.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/chromabridge.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/chromabridge)
set(CHROMA_INCLUDES ${CMAKE_INSTALL_INCLUDEDIR})
set(CHROMA_PLUGIN ${plugins_folder}/libchromabridge.so)
set(CHROMA_PROBE ${plugins_folder}/libchromaprobe.so)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/chromabridgeConfig.cmake.in
    ${PROJECT_BINARY_DIR}/chromabridgeConfig.cmake INSTALL_DESTINATION ${package_folder}
    PATH_VARS CHROMA_INCLUDES CHROMA_PLUGIN CHROMA_PROBE)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/chromabridgeConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/chromabridgeConfig.cmake ${PROJECT_BINARY_DIR}/chromabridgeConfigVersion.cmake
        DESTINATION ${package_folder})

include(${PROJECT_SOURCE_DIR}/packaging/debian.cmake)
