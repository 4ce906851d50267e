# 32-bit Windows, built by MinGW-w64. Test programs run through Wine.
set(conmuta_mingw i686-w64-mingw32)
set(conmuta_wine wine32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# Every processor that Windows 7 and later are used on has SSE2. (GCC aligns the stack by itself
# where it needs to: hosts call with any.)
set(CMAKE_C_FLAGS_INIT -msse2)
set(CMAKE_CXX_FLAGS_INIT -msse2)
