# Settings that every target of the project shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
# All programs in one place, so that a DLL lies beside the programs that load it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

if(QZ_SANITIZE)
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-fsanitize=${QZ_SANITIZE}>"
                        "$<$<COMPILE_LANGUAGE:C,CXX>:-fno-sanitize-recover=all>"
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${QZ_SANITIZE})
endif()

# Warnings for the project's own targets; they never reach a caller's build.
add_library(qz_warnings INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(qz_warnings INTERFACE
        $<$<COMPILE_LANGUAGE:C,CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion>
        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual>)
    if(QZ_WARNINGS_AS_ERRORS)
        target_compile_options(qz_warnings INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:-Werror>)
    endif()
endif()
if(MSVC)
    # The C functions that the library calls are those of the standard, which its headers would
    # rather see replaced; macros of the system named min and max are nobody's wish.
    target_compile_options(qz_warnings INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:/W3 /utf-8 /permissive->)
    target_compile_definitions(qz_warnings INTERFACE
        _CRT_SECURE_NO_WARNINGS _CRT_NONSTDC_NO_WARNINGS NOMINMAX _WIN32_WINNT=0x0A00)
    if(QZ_WARNINGS_AS_ERRORS)
        target_compile_options(qz_warnings INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:/WX>)
    endif()
endif()
