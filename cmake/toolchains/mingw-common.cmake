# What the two Windows toolchains share. `HALYARD_MINGW` is the compiler's prefix. The
# runtime is linked in, so that what is built needs the system's own DLLs only; threads
# are the posix kind, which the C++ library needs for its mutexes.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${HALYARD_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${HALYARD_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${HALYARD_MINGW}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${HALYARD_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
