#include "platform/standard_streams.h"
#include "qz/command.h"
#include "qz/output.h"
#include "qzbase64.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace qz::cli {

namespace {

struct Base64Options : CommonOptions {
    std::string file = "-";
    bool decode = false;
};

void declare_base64(CLI::App &command, Base64Options &options)
{
    command.add_option("file", options.file, "File to read (default: standard input)");
    command.add_flag("-d,--decode", options.decode, "Decode; line ends are passed over");
}

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

Stream open(const std::string &file)
{
    if (file == "-") {
        platform::carry_bytes(stdin);
        return {stdin, [](std::FILE *) { return 0; }};
    }
    return {std::fopen(file.c_str(), "rb"), &std::fclose};
}

// A multiple of 3 and of 4, so that no chunk but the last ends within a group.
constexpr std::size_t kChunk = 3 * (1 << 16);

/// Where the answer goes: to standard output as it comes, or into a text for JSON.
class Sink {
public:
    explicit Sink(bool keep) : keep_(keep) {}

    void write(const char *data, std::size_t size)
    {
        bytes_ += size;
        if (keep_)
            text_.append(data, size);
        else
            print({data, size});
    }

    const std::string &text() const { return text_; }

    std::size_t bytes() const { return bytes_; }

private:
    bool keep_;
    std::string text_;
    std::size_t bytes_ = 0;
};

void encode(std::FILE *input, Sink &sink)
{
    std::string chunk(kChunk, '\0');
    std::string encoded(kChunk / 3 * 4 + 1, '\0');
    while (const std::size_t size = std::fread(chunk.data(), 1, kChunk, input)) {
        const int written = modp_b64_encode(encoded.data(), chunk.data(), static_cast<int>(size));
        sink.write(encoded.data(), static_cast<std::size_t>(written));
    }
}

/// Decodes characters as they come, in whole groups.
class Decoder {
public:
    explicit Decoder(Sink &sink) : sink_(sink), decoded_(3 * (kChunk / 4 + 1), '\0') {}

    /// @return false at the first group that is not Base64; what stood before it is decoded.
    bool take(const std::string &characters)
    {
        pending_ += characters;
        const std::size_t whole = pending_.size() / 4 * 4;
        for (std::size_t at = 0; at < whole; at += kChunk) {
            if (!decode(at, std::min(kChunk, whole - at)))
                return false;
        }
        pending_.erase(0, whole);
        return true;
    }

    bool finish() const { return pending_.empty(); }

    /// How many characters have been decoded.
    std::size_t position() const { return position_; }

private:
    bool decode(std::size_t at, std::size_t size)
    {
        if (padded_)
            return false; // only the last group may be padded
        const int written = modp_b64_decode(decoded_.data(), &pending_[at], static_cast<int>(size));
        if (written < 0 && size == 4)
            return false;
        for (std::size_t group = 0; written < 0 && group < size; group += 4) {
            if (!decode(at + group, 4))
                return false;
        }
        if (written < 0)
            return false;
        sink_.write(decoded_.data(), static_cast<std::size_t>(written));
        position_ += size;
        padded_ = pending_[at + size - 1] == '=';
        return true;
    }

    Sink &sink_;
    std::string decoded_;
    std::string pending_;
    std::size_t position_ = 0;
    bool padded_ = false;
};

/// @return the exit status
int decode(std::FILE *input, Sink &sink)
{
    Decoder decoder(sink);
    std::string chunk(kChunk, '\0');
    bool good = true;
    while (good) {
        const std::size_t size = std::fread(chunk.data(), 1, kChunk, input);
        if (size == 0)
            break;
        std::string characters = chunk.substr(0, size);
        characters.erase(std::remove_if(characters.begin(), characters.end(),
                                        [](char c) { return c == '\n' || c == '\r'; }),
                         characters.end());
        good = decoder.take(characters);
    }
    if (good && decoder.finish())
        return 0;
    complain("not Base64 behind character " + std::to_string(decoder.position()) +
             ", line ends not counted");
    return 1;
}

int run_base64(const Base64Options &options)
{
    const Stream input = open(options.file);
    if (!input) {
        complain(options.file + ": " + std::strerror(errno));
        return 1;
    }
    if (options.decode && !options.json)
        platform::carry_bytes(stdout);
    Sink sink(options.json);
    int status = 0;
    if (options.decode)
        status = decode(input.get(), sink);
    else
        encode(input.get(), sink);
    if (std::ferror(input.get())) {
        complain(options.file + ": " + std::strerror(errno));
        status = 1;
    }
    if (options.json) {
        print_json(QJsonObject{{options.decode ? "text" : "base64", json_text(sink.text())},
                               {"bytes", static_cast<qint64>(sink.bytes())}});
    } else if (!options.decode && status == 0) {
        print("\n");
    }
    return status;
}

} // namespace

void add_base64_command(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "base64", "Encode to Base64, or decode, streams of any size",
                declare_base64, run_base64);
}

} // namespace qz::cli
