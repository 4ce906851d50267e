# 64-bit Windows, built by MinGW-w64. Test programs run through Wine.
set(conmuta_mingw x86_64-w64-mingw32)
set(conmuta_wine wine64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
