qz_fuzzer(split_fuzz SOURCES split_fuzz.cpp)
qz_fuzzer(number_fuzz SOURCES number_fuzz.cpp)
qz_fuzzer(wildcard_fuzz SOURCES wildcard_fuzz.cpp)
qz_fuzzer(regex_fuzz SOURCES regex_fuzz.cpp)
