qz_bench(fortran_bench SOURCES fortran_bench.cpp)
