// The digest's own functions, which the cryptography library keeps though it prefers a general
// interface: they need no provider, so that a digest cannot fail for its configuration.
#define OPENSSL_SUPPRESS_DEPRECATED

#include "qzfile.h"
#include "qzfile/qzfile/qzfile/stream.h"

#include <openssl/md5.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

using qz::file::Stream;

namespace {

/// What is read at a time: enough that the calls do not count, and small enough for any stack.
constexpr std::size_t kBlockBytes = std::size_t{64} << 10;

void clear(unsigned char *digest)
{
    std::fill_n(digest, MD5_DIGEST_LENGTH, static_cast<unsigned char>(0));
}

/// The digest of what is left in a stream, up to its end or an error.
void digest_stream(std::FILE *stream, unsigned char *digest)
{
    unsigned char block[kBlockBytes];
    MD5_CTX state;
    MD5_Init(&state);
    while (const std::size_t size_bytes = std::fread(block, 1, sizeof block, stream))
        MD5_Update(&state, block, size_bytes);
    MD5_Final(digest, &state);
}

} // namespace

int qzfile_md5_file(unsigned char digest[16], const char *path)
{
    clear(digest);
    // The path goes to the runtime as it is: callers give names of the system here.
    const Stream stream(path ? std::fopen(path, "rb") : nullptr);
    if (!stream)
        return 1;
    std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    digest_stream(stream.get(), digest);
    if (!std::ferror(stream.get()))
        return 0;
    clear(digest);
    return 1;
}

int qzfile_md5_filter(unsigned char digest[16])
{
    clear(digest);
    digest_stream(stdin, digest);
    return 0;
}

int qzfile_md5_string(unsigned char digest[16], const char *text)
{
    clear(digest);
    if (!text)
        return 0;
    MD5_CTX state;
    MD5_Init(&state);
    MD5_Update(&state, text, std::strlen(text));
    return MD5_Final(digest, &state);
}
