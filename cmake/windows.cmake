# Cross-builds for Windows on x86-64 with Debian's mingw-w64 and runs what it built under Wine; see scripts/test.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/run-windows")

# Of this machine's own libraries none is taken for one of Windows': only the compiler's and scripts/build-sndfile's count.
execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/../scripts/cache-dir" OUTPUT_VARIABLE _cache
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(_sndfile "${_cache}/sndfile-windows")
set(ENV{PKG_CONFIG_LIBDIR} "${_sndfile}/lib/pkgconfig")
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 "${_sndfile}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# The compiler's own libraries go into what is built: users have only Windows' own DLLs.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)
