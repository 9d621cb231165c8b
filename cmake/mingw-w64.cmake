# The cross compiler for 64-bit Windows: Debian's g++-mingw-w64-x86-64-posix (the posix variant, for std::thread).
#   cmake -S . -B build/windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake
# Programs carry their C++ runtime in themselves and need no DLL that Windows lacks.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(HAVUZ_MINGW x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${HAVUZ_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${HAVUZ_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${HAVUZ_MINGW}-windres)
set(CMAKE_AR ${HAVUZ_MINGW}-gcc-ar-posix)
set(CMAKE_RANLIB ${HAVUZ_MINGW}-gcc-ranlib-posix)

# Libraries and headers come from the cross compiler's own tree and from what CMAKE_PREFIX_PATH names; never from Debian's.
set(CMAKE_FIND_ROOT_PATH /usr/${HAVUZ_MINGW} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
if(EXISTS /usr/bin/wine)
  set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/wine)
endif()
