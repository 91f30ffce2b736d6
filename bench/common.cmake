# The peers that are not among the library's own dependencies are measured where they are installed.
if(PkgConfig_FOUND)
    pkg_check_modules(GLIB IMPORTED_TARGET glib-2.0)
endif()

qz_bench(base64_bench SOURCES base64_bench.cpp LINK OpenSSL::Crypto Qt6::Core absl::strings)
if(GLIB_FOUND)
    target_link_libraries(base64_bench PRIVATE PkgConfig::GLIB)
    target_compile_definitions(base64_bench PRIVATE QZ_BENCH_GLIB)
endif()
