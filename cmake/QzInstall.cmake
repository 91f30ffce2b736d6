# What "cmake --install" lays out: the library, its headers, and the two ways to find them. Both
# find the rest from where they lie themselves, so that an installation may be moved as a whole.

include(CMakePackageConfigHelpers)

set(QZ_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/qzfileshared")
set(QZ_INSTALL_PKGCONFIGDIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

set_target_properties(qz_headers PROPERTIES EXPORT_NAME headers)
install(TARGETS qzfileshared EXPORT qzfileshared
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS qz_headers EXPORT qzfileshared)
install(FILES ${QZ_PUBLIC_HEADER_PATHS}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qzfileshared COMPONENT development)

install(EXPORT qzfileshared NAMESPACE qzfileshared:: FILE qzfileshared-targets.cmake
    DESTINATION ${QZ_INSTALL_CMAKEDIR} COMPONENT development)
configure_package_config_file(cmake/qzfileshared-config.cmake.in qzfileshared-config.cmake
    INSTALL_DESTINATION ${QZ_INSTALL_CMAKEDIR}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(qzfileshared-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/qzfileshared-config.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/qzfileshared-config-version.cmake"
    DESTINATION ${QZ_INSTALL_CMAKEDIR} COMPONENT development)

file(RELATIVE_PATH QZ_PREFIX_FROM_PKGCONFIGDIR
     "/${QZ_INSTALL_PKGCONFIGDIR}" "/")
string(REGEX REPLACE "/$" "" QZ_PREFIX_FROM_PKGCONFIGDIR "${QZ_PREFIX_FROM_PKGCONFIGDIR}")
configure_file(cmake/qzfileshared.pc.in qzfileshared.pc @ONLY)
configure_file(cmake/qzfileshared-fortran.pc.in qzfileshared-fortran.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/qzfileshared.pc"
              "${CMAKE_CURRENT_BINARY_DIR}/qzfileshared-fortran.pc"
    DESTINATION ${QZ_INSTALL_PKGCONFIGDIR} COMPONENT development)

install(FILES README.md docs/architecture.md DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT development)

# A program finds the library beside itself wherever the installation lies.
if(TARGET qz AND NOT WIN32)
    file(RELATIVE_PATH QZ_LIBDIR_FROM_BINDIR "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(qz PROPERTIES INSTALL_RPATH "$ORIGIN/${QZ_LIBDIR_FROM_BINDIR}")
endif()
