# Cross build for 64-bit Windows with Debian's MinGW-w64 (posix threads flavour).
# The test executables run under Wine through the emulator setting below.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_prefix x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_prefix}-g++-posix)
set(CMAKE_RC_COMPILER ${_prefix}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${_prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(WINE_PROGRAM NAMES wine64 wine REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE_PROGRAM})
