# Toolchain: builds for Windows with the cross compiler of Debian (g++-mingw-w64-x86-64-posix). Libraries of headers
# only are those of this machine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
# Tests run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tests/windows/wine)
set(CLI11_DIR ${CMAKE_CURRENT_LIST_DIR}/windows)
set(nlohmann_json_DIR ${CMAKE_CURRENT_LIST_DIR}/windows)
set(GTest_DIR ${CMAKE_CURRENT_LIST_DIR}/windows)
