# The peers are measured where they are installed; POSIX regexec and std::regex come with the system.
pkg_check_modules(RE2 IMPORTED_TARGET re2)

qz_bench(regex_bench SOURCES regex_bench.cpp)
if(RE2_FOUND)
    target_link_libraries(regex_bench PRIVATE PkgConfig::RE2)
    target_compile_definitions(regex_bench PRIVATE QZ_BENCH_RE2)
endif()
