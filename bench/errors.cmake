qz_bench(errors_bench SOURCES errors_bench.cpp)
