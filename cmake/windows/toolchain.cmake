# Windows from Debian: its MinGW compilers, and what windows/setup has built into NEWPRO_WINDOWS.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(windows $ENV{NEWPRO_WINDOWS})
if(NOT windows)
    message(FATAL_ERROR "NEWPRO_WINDOWS has to name the folder of windows/setup.")
endif()
# The threads of the C++ library need the compilers named "posix".
set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

set(CMAKE_FIND_ROOT_PATH ${windows}/root /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)
# Where Wine shows the folders of this machine: a path without a drive is another one on each.
set(NEWPRO_DRIVE Z:)
