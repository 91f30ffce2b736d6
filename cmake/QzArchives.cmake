# Every shared library that a program maps costs it a part of its start, however little of it is
# called. Where the system has an archive of position-independent code too, that is linked instead.

include(CheckCXXSourceCompiles)

# qz_prefer_archives(RESULT LIBRARIES CODE NAME ...): the archives of these names, when CODE links
# into a shared library with them; else LIBRARIES. A name with "::" is a target that goes with them.
function(qz_prefer_archives result libraries code)
    set(${result} ${libraries} PARENT_SCOPE)
    set(archives)
    foreach(name IN LISTS ARGN)
        if(name MATCHES "::")
            list(APPEND archives ${name})
            continue()
        endif()
        find_library(QZ_ARCHIVE_${name} NAMES lib${name}.a)
        mark_as_advanced(QZ_ARCHIVE_${name})
        if(NOT QZ_ARCHIVE_${name})
            return()
        endif()
        list(APPEND archives "${QZ_ARCHIVE_${name}}")
    endforeach()
    set(CMAKE_REQUIRED_FLAGS "-fPIC -shared -Wl,-z,defs,--exclude-libs,ALL")
    set(CMAKE_REQUIRED_LIBRARIES ${archives})
    set(CMAKE_REQUIRED_QUIET ON)
    check_cxx_source_compiles("${code}" ${result}_LINKS)
    if(${result}_LINKS)
        set(${result} ${archives} PARENT_SCOPE)
    endif()
endfunction()

set(QZ_DIGEST_LIBRARIES OpenSSL::Crypto)
set(QZ_ABSEIL_LIBRARIES absl::strings absl::hash)
if(UNIX AND NOT APPLE)
    qz_prefer_archives(QZ_DIGEST_LIBRARIES "${QZ_DIGEST_LIBRARIES}" "
#include <openssl/md5.h>
int digest() { MD5_CTX state; unsigned char text[16] = {};
    return MD5_Init(&state) & MD5_Update(&state, text, 16) & MD5_Final(text, &state); }
" crypto)
    qz_prefer_archives(QZ_ABSEIL_LIBRARIES "${QZ_ABSEIL_LIBRARIES}" "
#include <absl/hash/hash.h>
#include <absl/strings/charconv.h>
std::size_t hash(const char *text) { return absl::Hash<absl::string_view>()(text); }
double number(const char *text, const char *end) { double value = 0;
    absl::from_chars(text, end, value, absl::chars_format::general); return value; }
" absl_strings absl_int128 absl_hash absl_city absl_low_level_hash absl::throw_delegate)
endif()
