#include "qz/command.h"
#include "qz/output.h"
#include "qzfile.h"

#include <array>

namespace qz::cli {

namespace {

struct DigestOptions : CommonOptions {
    std::vector<std::string> files;
};

void declare_md5(CLI::App &command, DigestOptions &options)
{
    add_words(command, "file", options.files,
              "Files, - for standard input (default: standard input)");
}

using Digest = std::array<unsigned char, 16>;

bool digest_of(const std::string &file, Digest &digest)
{
    if (file == "-")
        return qzfile_md5_filter(digest.data()) == 0;
    // Some systems open a directory like an empty file.
    constexpr int kDirectory = 1;
    return qzfile_file_exists(file.c_str(), kDirectory) != 0 &&
           qzfile_md5_file(digest.data(), file.c_str()) == 0;
}

std::string hexadecimal(const Digest &digest)
{
    static const char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : digest)
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
    return text;
}

int run_md5(const DigestOptions &options)
{
    int status = 0;
    QJsonArray answer;
    const std::vector<std::string> files =
        options.files.empty() ? std::vector<std::string>{"-"} : options.files;
    for (const std::string &file : files) {
        Digest digest{};
        if (!digest_of(file, digest)) {
            complain(file + ": cannot be read as a file");
            status = 1;
            continue;
        }
        if (options.json)
            answer.append(
                QJsonObject{{"file", json_text(file)}, {"md5", json_text(hexadecimal(digest))}});
        else
            print_line(hexadecimal(digest) + "  " + file);
    }
    if (options.json)
        print_json(answer);
    return status;
}

} // namespace

void add_digest_command(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "md5", "Print the MD5 digests of files", declare_md5, run_md5);
}

} // namespace qz::cli
