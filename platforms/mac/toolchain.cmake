# Builds for macOS on another system with clang, LLVM's tools, the headers of another C library, and link-time lists of the
# system libraries.
set(CMAKE_SYSTEM_NAME Darwin)
find_program(CMAKE_C_COMPILER clang REQUIRED)
find_program(CMAKE_CXX_COMPILER clang++ REQUIRED)
find_program(CMAKE_OBJC_COMPILER clang REQUIRED)
set(triple x86_64-apple-macos) # slices and versions follow from CMAKE_OSX_ARCHITECTURES and CMAKE_OSX_DEPLOYMENT_TARGET
set(CMAKE_C_COMPILER_TARGET ${triple})
set(CMAKE_CXX_COMPILER_TARGET ${triple})
set(CMAKE_OBJC_COMPILER_TARGET ${triple})
set(CMAKE_OSX_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/sysroot)
# programs cannot be linked, because the sysroot has only what the plugin imports
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# On some systems the names of LLVM's programs contain its version. The compiler calls two of them by their names on macOS.
file(GLOB llvmFolders /usr/lib/llvm-*/bin)
foreach(tool IN ITEMS ld64.lld llvm-ar llvm-install-name-tool llvm-lipo llvm-nm llvm-objcopy llvm-objdump llvm-otool llvm-ranlib llvm-strip)
    string(MAKE_C_IDENTIFIER CHROMA_${tool} variable)
    string(TOUPPER ${variable} variable)
    find_program(${variable} ${tool} HINTS ${llvmFolders} REQUIRED)
endforeach()
set(CMAKE_AR ${CHROMA_LLVM_AR})
set(CMAKE_RANLIB ${CHROMA_LLVM_RANLIB})
set(CMAKE_STRIP ${CHROMA_LLVM_STRIP})
set(CMAKE_NM ${CHROMA_LLVM_NM})
set(CMAKE_OBJDUMP ${CHROMA_LLVM_OBJDUMP})
set(CMAKE_INSTALL_NAME_TOOL ${CHROMA_LLVM_INSTALL_NAME_TOOL})
set(tools ${CMAKE_BINARY_DIR}/tools)
file(MAKE_DIRECTORY ${tools})
configure_file(${CMAKE_CURRENT_LIST_DIR}/ld64.lld.in ${tools}/ld64.lld @ONLY)
file(CREATE_LINK ${CHROMA_LLVM_LIPO} ${tools}/lipo SYMBOLIC)

file(GLOB libcxxFolders /usr/lib/llvm-*/include/c++/v1)
find_path(CHROMA_LIBCXX_HEADERS type_traits HINTS ${libcxxFolders} NO_DEFAULT_PATH REQUIRED)
file(GLOB muslFolders /usr/include/*-linux-musl)
find_path(CHROMA_MUSL_HEADERS bits/alltypes.h HINTS ${muslFolders} NO_DEFAULT_PATH REQUIRED)

# The compiler's headers come first, then ours, which correct the C library's, and then those of the C library.
set(flags "-B${tools} -nostdlibinc -D_GNU_SOURCE")
set(lateHeaders "-idirafter ${CMAKE_CURRENT_LIST_DIR}/headers -idirafter ${CHROMA_MUSL_HEADERS}")
set(CMAKE_C_FLAGS_INIT "${flags} ${lateHeaders}")
set(CMAKE_OBJC_FLAGS_INIT "${flags} ${lateHeaders}")
set(CMAKE_CXX_FLAGS_INIT
    "${flags} -D_LIBCPP_HAS_MUSL_LIBC -stdlib=libc++ -nostdinc++ -isystem ${CHROMA_LIBCXX_HEADERS} ${lateHeaders}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-fuse-ld=lld -Wno-unused-command-line-argument")
