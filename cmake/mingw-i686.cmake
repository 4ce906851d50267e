# 32-bit Windows, built by MinGW-w64. Test programs run through Wine.
set(conmuta_mingw i686-w64-mingw32)
set(conmuta_wine wine32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
