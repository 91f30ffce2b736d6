# qz_soname(RESULT LIBRARY): the name under which the loader finds a shared library.
function(qz_soname result library)
    execute_process(COMMAND "${CMAKE_READELF}" --dynamic --wide "${library}"
                    OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
    if(NOT dynamic MATCHES "SONAME[^[]*\\[([^]]+)\\]")
        message(FATAL_ERROR "${library} has no SONAME")
    endif()
    set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()
