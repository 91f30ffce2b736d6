# Builds for Windows on x86-64 with the cross-compilers of Debian. The libraries that are called lie
# in one prefix, which scripts/windows-dependencies fills.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The variants with POSIX threads: the others lack std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_Fortran_COMPILER x86_64-w64-mingw32-gfortran-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Windows 10: the oldest that Qt 6 runs on.
foreach(language C CXX)
    set(CMAKE_${language}_FLAGS_INIT "-D_WIN32_WINNT=0x0A00")
endforeach()

if(DEFINED ENV{QZ_WINDOWS_PREFIX})
    set(QZ_WINDOWS_PREFIX "$ENV{QZ_WINDOWS_PREFIX}" CACHE PATH "Where the libraries for Windows lie")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QZ_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH "${QZ_WINDOWS_PREFIX}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The machine's own pkg-config speaks of the machine's own libraries.
set(ENV{PKG_CONFIG_LIBDIR} "${QZ_WINDOWS_PREFIX}/lib/pkgconfig")

# Qt takes the programs that run while it builds from the machine it builds on.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake CACHE PATH "")

# What is built runs under Wine: the tests, and whatever a build runs of its own.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine")
