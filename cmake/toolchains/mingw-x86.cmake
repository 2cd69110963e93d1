# Windows, 32 bits.
set(HALYARD_MINGW i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86)
# The older floating-point unit changes signalling NaNs that it merely moves.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
