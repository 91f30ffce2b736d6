# qz_module(NAME SOURCES ... [LINK ...]): one module of the library, as objects.
function(qz_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(${name} OBJECT ${arg_SOURCES})
    target_compile_definitions(${name} PRIVATE QZFILESHARED_BUILD)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC qz_headers PRIVATE qz_warnings ${arg_LINK})
endfunction()
