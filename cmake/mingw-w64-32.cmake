# The same on 32-bit x86: the width of the terminal's own processor. Every such processor that Windows still runs on has
# the vectors that the compiler would not count on.
set(KEL_MINGW i686-w64-mingw32)
set(KEL_MINGW_PROCESSOR x86)
set(KEL_MINGW_FLAGS "-msse2")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
