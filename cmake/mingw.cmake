# What both Windows toolchains share.
set(CMAKE_SYSTEM_NAME Windows)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${conmuta_mingw})

# The posix thread model, because GoogleTest needs std::mutex.
set(CMAKE_C_COMPILER ${conmuta_mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${conmuta_mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${conmuta_mingw}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${conmuta_mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Whatever we build runs on a bare Windows: no DLL of the compiler's beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/${conmuta_wine})
