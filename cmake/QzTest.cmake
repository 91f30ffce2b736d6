# qz_test(NAME [INSIDE] SOURCES ... [LINK ...] [ENVIRONMENT NAME=VALUE ...])
#
# One test program. It links the shared library and sees what a caller sees; with INSIDE it links
# the archive of the same objects and sees the internal headers too.
function(qz_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "INSIDE" "" "SOURCES;LINK;ENVIRONMENT")
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    if(arg_INSIDE)
        target_link_libraries(${name} PRIVATE qz_inside)
        target_compile_definitions(${name} PRIVATE QZFILESHARED_STATIC)
    else()
        target_link_libraries(${name} PRIVATE qzfileshared::qzfileshared)
    endif()
    target_link_libraries(${name} PRIVATE qz_warnings GTest::gtest GTest::gtest_main ${arg_LINK})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "${arg_ENVIRONMENT}")
    foreach(source IN LISTS arg_SOURCES)
        set_property(GLOBAL APPEND PROPERTY QZ_REGISTERED_TESTS
                     "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
    endforeach()
endfunction()

# qz_test_not_here(REASON SOURCES ...): tests that cannot be on the system that is built for.
function(qz_test_not_here reason)
    foreach(source IN LISTS ARGN)
        message(STATUS "Without ${source}: ${reason}")
        set_property(GLOBAL APPEND PROPERTY QZ_REGISTERED_TESTS
                     "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
    endforeach()
endfunction()

# A test that nobody runs protects nothing: one that is not registered stops the configuration.
function(qz_check_tests_are_registered)
    get_property(registered GLOBAL PROPERTY QZ_REGISTERED_TESTS)
    file(GLOB_RECURSE present CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/*_test.cpp")
    foreach(test IN LISTS present)
        if(NOT test IN_LIST registered)
            message(FATAL_ERROR "${test} is not registered with qz_test()")
        endif()
    endforeach()
endfunction()
