# The options that harden the libraries and programs if the linker is GNU's. tests/plugin/hardening_check.cmake checks the
# result. No symbol of a library may stay unresolved, as on macOS.
target_compile_options(chroma_options INTERFACE -fstack-protector-strong)
target_link_options(chroma_options INTERFACE -Wl,-z,defs,-z,relro,-z,now,-z,noexecstack)
set(CHROMA_X86 "^(x86_64|AMD64|i[3-6]86)$")
if(CMAKE_SYSTEM_PROCESSOR MATCHES "${CHROMA_X86}")
    target_compile_options(chroma_options INTERFACE -fcf-protection)
endif()
