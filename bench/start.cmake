# The same program with Qt Core alone and with the library. Neither calls anything: what is linked is
# loaded all the same.
if(WIN32)
    return()
endif()
foreach(program start_qt start_library)
    add_executable(${program} start.c)
    target_link_options(${program} PRIVATE -Wl,--no-as-needed)
endforeach()
target_link_libraries(start_qt PRIVATE Qt6::Core)
target_link_libraries(start_library PRIVATE qzfileshared::qzfileshared)

qz_bench(start_bench SOURCES start_bench.cpp)
target_compile_definitions(start_bench PRIVATE
    QZ_START_QT="$<TARGET_FILE:start_qt>" QZ_START_LIBRARY="$<TARGET_FILE:start_library>")
add_dependencies(start_bench start_qt start_library)
