qz_fuzzer(base64_fuzz SOURCES base64_fuzz.cpp)
qz_fuzzer(shell_quote_fuzz SOURCES shell_quote_fuzz.cpp)
