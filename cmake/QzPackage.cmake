# Debian packages of an installation: "cpack -G DEB" in the directory of a build.

set(CPACK_PACKAGE_NAME libqzfileshared)
set(CPACK_PACKAGE_VENDOR "Halcyra")
set(CPACK_PACKAGE_CONTACT "Halcyra <maintainers@halcyra.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(same_library "libqzfileshared (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libqzfileshared)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# What is loaded by name is not found in the link.
set(loaded_packages)
foreach(soname IN ITEMS ${QZ_LIBGFORTRAN_SONAME} ${QZ_LIBXML2_SONAME})
    execute_process(COMMAND dpkg-query --search "*/${soname}" OUTPUT_VARIABLE owner
                    RESULT_VARIABLE failed ERROR_QUIET)
    if(NOT failed AND owner MATCHES "^([^:,]+)")
        list(APPEND loaded_packages ${CMAKE_MATCH_1})
    endif()
endforeach()
list(JOIN loaded_packages ", " CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS)

# The Python package needs no compiler and goes with the headers all the same: who writes programs
# on the library installs one package.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqzfileshared-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${same_library}, libboost-filesystem-dev, qt6-base-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "gfortran, python3")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME libqzfileshared-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${same_library}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

include(CPack)
