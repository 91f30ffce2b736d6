qz_fuzzer(list_fuzz SOURCES list_fuzz.cpp)
qz_fuzzer(expand_fuzz SOURCES expand_fuzz.cpp)
qz_fuzzer(convert_fuzz SOURCES convert_fuzz.cpp)
