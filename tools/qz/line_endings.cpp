#include "qz/command.h"
#include "qz/output.h"
#include "qz/progress.h"
#include "qzfile.h"

#include <QFileInfo>

#include <atomic>

namespace qz::cli {

namespace {

struct LineEndingOptions : CommonOptions {
    std::vector<std::string> files;
    bool check = false;
};

void declare_dos2unix(CLI::App &command, LineEndingOptions &options)
{
    add_words(command, "file", options.files, "Files to convert in place")->required();
    command.add_flag("-n,--check", options.check, "Only tell which files would be converted");
    command.footer("A file is converted when its first line holds a carriage return. A file that "
                   "cannot be\nconverted stays as it was, and the status is 1.");
}

double size_of(const std::string &file)
{
    return static_cast<double>(QFileInfo(QString::fromStdString(native(file))).size());
}

constexpr int kRegularFile = 0;

/// "converted", "unchanged", "would convert" or "failed".
const char *convert(const std::string &file, bool check)
{
    if (qzfile_file_exists(file.c_str(), kRegularFile) != 0) {
        complain(file + ": there is no such file");
        return "failed";
    }
    if (qzfile_is_dosfile(file.c_str()) != 0)
        return "unchanged";
    if (check)
        return "would convert";
    return qzfile_dos_to_unix(file.c_str()) == 0 ? "converted" : "failed";
}

int run_dos2unix(const LineEndingOptions &options)
{
    double total = 0;
    for (const std::string &file : options.files)
        total += size_of(file);
    double finished = 0;
    std::atomic<double> before{0};
    std::atomic<const std::string *> current{nullptr};
    int status = 0;
    QJsonArray answer;
    std::string lines;
    {
        // A conversion writes beside the file first.
        const Progress progress(total, [&] {
            const std::string *const file = current;
            return before + (file ? size_of(*file + ".tmp") : 0);
        });
        for (const std::string &file : options.files) {
            const double size = size_of(file);
            current = &file;
            const std::string result = convert(file, options.check);
            current = nullptr;
            before = finished += size;
            if (result == "failed")
                status = 1;
            answer.append(QJsonObject{{"file", json_text(file)}, {"result", json_text(result)}});
            if (result != "failed")
                lines += result + "  " + file + '\n';
        }
    }
    if (options.json)
        print_json(answer);
    else
        print(lines);
    return status;
}

} // namespace

void add_line_ending_command(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "dos2unix", "Turn carriage-return line ends into line feeds",
                declare_dos2unix, run_dos2unix);
}

} // namespace qz::cli
