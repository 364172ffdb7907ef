# Cross build for 64-bit Windows with MinGW-w64, posix thread model (so that
# std::thread works). Test binaries run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${CMAKE_SOURCE_DIR}/build/win-deps)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# CTest runs the test .exe files through Wine, by way of a script that keeps
# Wine's background processes off CTest's output pipe.
find_program(WINE_PROGRAM NAMES wine wine64)
if(WINE_PROGRAM)
  set(CMAKE_CROSSCOMPILING_EMULATOR /bin/sh ${CMAKE_CURRENT_LIST_DIR}/run-under-wine.sh ${WINE_PROGRAM})
endif()
