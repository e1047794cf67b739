# Windows, on x86-64 unless KEL_MINGW names another machine's tools, built with MinGW-w64 and POSIX threads; every program
# is one static file.
if(NOT DEFINED KEL_MINGW)
  set(KEL_MINGW x86_64-w64-mingw32)
  set(KEL_MINGW_PROCESSOR x86_64)
endif()
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${KEL_MINGW_PROCESSOR})

set(CMAKE_C_COMPILER ${KEL_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KEL_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${KEL_MINGW}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${KEL_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CXX_FLAGS_INIT "-DUNICODE -D_UNICODE -DWINVER=0x0601 -D_WIN32_WINNT=0x0601 -ffunction-sections -fdata-sections ${KEL_MINGW_FLAGS}")
set(CMAKE_CXX_FLAGS_MINSIZEREL_INIT "-Os -DNDEBUG")
# No time stands in what is linked: the same sources give the same program.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--gc-sections,--no-insert-timestamp")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static -Wl,--gc-sections,--no-insert-timestamp")
