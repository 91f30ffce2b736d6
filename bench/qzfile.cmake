find_package(PkgConfig)
pkg_check_modules(RE2 IMPORTED_TARGET re2)

qz_bench(qzfile_bench SOURCES qzfile_bench.cpp LINK Boost::filesystem Qt6::Core)
if(TARGET PkgConfig::RE2)
    target_link_libraries(qzfile_bench PRIVATE PkgConfig::RE2)
    target_compile_definitions(qzfile_bench PRIVATE QZ_BENCH_RE2)
endif()
