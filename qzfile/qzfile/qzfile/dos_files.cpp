#include "platform/directory_calls.h"
#include "platform/file.h"
#include "platform/file_stamp.h"
#include "platform/native_path.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/line_endings.h"
#include "qzfile/qzfile/qzfile/lookup.h"
#include "qzfile/qzfile/qzfile/stream.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>

using namespace qz::file;
using qz::platform::qzwin32_fopen;

namespace {

/// What is read at a time. It stays in the processor's cache between reading and writing.
constexpr std::size_t kBlockBytes = std::size_t{256} << 10;

/// Creates a file like another. What has its name goes first: the leftover of a conversion that was
/// killed, or a link, which is not written through.
std::FILE *create_anew(const std::string &native_path, const std::string &native_model)
{
    std::FILE *stream = qz::platform::create_file_like(native_path, native_model);
    if (!stream && errno == EEXIST && qz::platform::remove_file(native_path) == 0)
        stream = qz::platform::create_file_like(native_path, native_model);
    return stream;
}

/// A file being written beside another, gone again unless it takes that one's place. Once it is
/// there, nothing needs memory.
class SideFile {
public:
    SideFile(std::string native_path, std::string native_target)
        : path_(std::move(native_path)), target_(std::move(native_target)),
          stream_(create_anew(path_, target_))
    {
        // It is written in blocks, which need no buffer between.
        if (stream_)
            std::setvbuf(stream_.get(), nullptr, _IONBF, 0);
    }

    SideFile(const SideFile &) = delete;
    SideFile &operator=(const SideFile &) = delete;

    ~SideFile()
    {
        if (stream_)
            discard();
    }

    bool is_open() const { return stream_ != nullptr; }

    bool write(const char *data, std::size_t size_bytes)
    {
        return std::fwrite(data, 1, size_bytes, stream_.get()) == size_bytes;
    }

    /// Takes the target's place in one step; a failure leaves the target as it was.
    bool commit()
    {
        if (std::fclose(stream_.release()) == 0 && qz::platform::replace_file(path_, target_) == 0)
            return true;
        discard();
        return false;
    }

private:
    void discard()
    {
        stream_.reset();
        std::remove(path_.c_str());
    }

    const std::string path_;
    const std::string target_;
    Stream stream_;
};

bool convert(std::FILE *source, SideFile &result, char *block)
{
    std::size_t left_bytes = 0; // the beginning of a piece, left over from the block before
    for (;;) {
        const std::size_t wanted = kBlockBytes - left_bytes;
        const std::size_t got = std::fread(block + left_bytes, 1, wanted, source);
        if (std::ferror(source))
            return false;
        const std::size_t size_bytes = left_bytes + got;
        const Converted done = convert_line_endings(block, size_bytes, got < wanted);
        if (!result.write(block, done.written_bytes))
            return false;
        if (got < wanted)
            return true;
        left_bytes = size_bytes - done.read_bytes;
        std::memmove(block, block + done.read_bytes, left_bytes);
    }
}

int convert_file(const char *path)
{
    // Beside the file that a link names, so that the link goes on to name it.
    const std::string native = qz::platform::native_path(path);
    const std::string file = qz::platform::link_target(native);
    const std::string side_path = (file == native ? path : file) + ".tmp";
    const auto block = std::make_unique<char[]>(kBlockBytes);

    Stream source(qzwin32_fopen(path, "rb"));
    if (!source)
        return fail_at(QZERR_FATAL, "qzfile_dos_to_unix():Failed to open '%s' for reading.\n",
                       path);
    std::setvbuf(source.get(), nullptr, _IONBF, 0);
    SideFile result(file + ".tmp", file);
    if (!result.is_open())
        return fail_at(QZERR_FATAL, "qzfile_dos_to_unix():Failed to open '%s' for writing.\n",
                       side_path.c_str());
    const bool is_converted = convert(source.get(), result, block.get());
    source.reset(); // Some systems do not replace a file that is open.
    if (is_converted && result.commit())
        return 0;
    return fail_at(QZERR_FATAL,
                   "qzfile_dos_to_unix():Failed to rename the converted file '%s' to '%s'.\n",
                   side_path.c_str(), path);
}

bool is_dos_file(const char *path)
{
    const Stream stream(qzwin32_fopen(path, "rb"));
    char line[kPieceBytes + 1];
    // Up to a NUL: a first line that holds one is no text, and is best left alone.
    return stream && std::fgets(line, sizeof line, stream.get()) && std::strchr(line, '\r');
}

} // namespace

int qzfile_is_dosfile(const char *path)
{
    if (!path)
        return -1;
    return guarded(-1, [&] { return is_dos_file(path) ? 0 : -1; });
}

int qzfile_dos_to_unix(const char *path)
{
    if (!path)
        return 0;
    return guarded(-1, [&] {
        try {
            const bool has_work = look_up(path, kRegularFile).is_found && is_dos_file(path);
            return has_work ? convert_file(path) : 0;
        } catch (const std::bad_alloc &) {
            return fail_at(QZERR_FATAL,
                           "qzfile_dos_to_unix():Failed to allocate memory for path '%s'.\n", path);
        }
    });
}
