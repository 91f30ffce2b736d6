# The shared library, and the same objects as an archive for tests that look inside.

set(QZ_MODULES qz_platform qz_errors qz_regex qz_tokens qz_qzfile qz_path qz_qzpref qz_qzpref_access
               qz_common qz_base64 qz_fortran)
set(qz_objects)
foreach(module IN LISTS QZ_MODULES)
    list(APPEND qz_objects $<TARGET_OBJECTS:${module}>)
endforeach()

set(QZ_LINK_PUBLIC Qt6::Core Boost::filesystem)
set(QZ_LINK_PRIVATE ${QZ_DIGEST_LIBRARIES} ${QZ_ABSEIL_LIBRARIES} absl::flat_hash_set
                    Threads::Threads ${CMAKE_DL_LIBS})
if(WIN32)
    list(APPEND QZ_LINK_PRIVATE LibXml2::LibXml2) # elsewhere loaded when it is needed
endif()

add_library(qzfileshared SHARED ${qz_objects})
add_library(qzfileshared::qzfileshared ALIAS qzfileshared)
set_target_properties(qzfileshared PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    LINKER_LANGUAGE CXX)
if(WIN32)
    set_target_properties(qzfileshared PROPERTIES PREFIX "" IMPORT_PREFIX "")
else()
    set(qz_symbols "${PROJECT_SOURCE_DIR}/cmake/qzfileshared.map")
    # Calls from one exported function to another need not ask who else exports that name.
    # The compiler's own list of libraries has the Fortran run-time, which is loaded when needed.
    target_link_options(qzfileshared PRIVATE
        "-Wl,--version-script=${qz_symbols}" -Wl,-Bsymbolic-functions -Wl,--as-needed)
    set_target_properties(qzfileshared PROPERTIES LINK_DEPENDS "${qz_symbols}")
endif()
target_link_libraries(qzfileshared PUBLIC qz_headers ${QZ_LINK_PUBLIC} PRIVATE ${QZ_LINK_PRIVATE})

# The same code as an archive: a test that needs a name the library hides links this one.
add_library(qz_inside STATIC EXCLUDE_FROM_ALL ${qz_objects})
set_target_properties(qz_inside PROPERTIES LINKER_LANGUAGE CXX)
target_include_directories(qz_inside PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(qz_inside PUBLIC qz_headers ${QZ_LINK_PUBLIC} ${QZ_LINK_PRIVATE})
