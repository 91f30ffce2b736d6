# What the library calls. Every one of them comes from the system's own packages.

find_package(Qt6 6.2 REQUIRED COMPONENTS Core)
find_package(Boost 1.71 REQUIRED COMPONENTS filesystem)
find_package(LibXml2 REQUIRED)
find_package(OpenSSL REQUIRED COMPONENTS Crypto)
find_package(absl REQUIRED)
find_package(Threads REQUIRED)
# Prototypes of the embedding interface only: the interpreter itself is found in the running
# process, so nothing of it is linked. The half for Windows brings its own prototypes, and the
# machine's pkg-config would speak of the wrong system when it is built from another.
if(NOT WIN32)
    find_package(PkgConfig)
    if(PkgConfig_FOUND)
        pkg_check_modules(QZ_PYTHON python3)
    endif()
    find_path(QZ_PYTHON_INCLUDE_DIR Python.h HINTS ${QZ_PYTHON_INCLUDE_DIRS} REQUIRED)
endif()

# Libraries that are loaded when they are needed, by name, and are not linked.
if(NOT WIN32)
    execute_process(COMMAND "${CMAKE_Fortran_COMPILER}" -print-file-name=libgfortran.so
                    OUTPUT_VARIABLE libgfortran OUTPUT_STRIP_TRAILING_WHITESPACE)
    include(QzSoname)
    qz_soname(QZ_LIBGFORTRAN_SONAME "${libgfortran}")
    qz_soname(QZ_LIBXML2_SONAME "${LIBXML2_LIBRARY}")
endif()
