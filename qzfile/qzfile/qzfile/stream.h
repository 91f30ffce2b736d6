#ifndef QZ_QZFILE_STREAM_H
#define QZ_QZFILE_STREAM_H

#include <cstdio>
#include <memory>

namespace qz::file {

struct CloseStream {
    void operator()(std::FILE *stream) const { std::fclose(stream); }
};

using Stream = std::unique_ptr<std::FILE, CloseStream>;

} // namespace qz::file

#endif
