# Compiled to keep the 32-bit build honest. No emulator is named: a 64-bit Wine
# would run such an exe to status 0 without doing anything.
set(MINGW_TRIPLE i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
