# A toolchain file: programs for 64-bit Windows, built on Debian with g++-mingw-w64-x86-64-posix and run by Wine. Debian
# has no Qt for it, so what is built are the parts without Qt (COMPOSER_WITHOUT_QT).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Windows aligns stacks to 16 bytes, and the compiler relies on 32 where it keeps vectors of AVX there.
set(CMAKE_CXX_FLAGS_INIT -Wa,-muse-unaligned-vector-move)
find_program(WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR
        ${CMAKE_COMMAND} -E env WINEDEBUG=-all WINEPREFIX=${CMAKE_BINARY_DIR}/wine ${WINE})
endif()
