#ifndef QZ_QZFILE_OPEN_FILES_H
#define QZ_QZFILE_OPEN_FILES_H

#include <cstdio>
#include <string>
#include <vector>

namespace qz::file {

/// The most files that are open at once.
constexpr std::size_t kOpenFileLimit = 100;
/// The longest mode that is kept, in bytes.
constexpr std::size_t kLongestMode = 15;

/// A file that was opened here: where it lies, and how it was opened.
struct OpenFile {
    std::string directory;
    std::string name;
    std::FILE *stream;
    std::string mode; ///< what was asked for, cut to kLongestMode
};

/// The files that are open, in the order in which they were opened. A stream that was closed
/// elsewhere keeps its place until another with the same address takes it.
class OpenFileTable {
public:
    bool is_full() const { return files_.size() >= kOpenFileLimit; }

    /// Enters a file, in the place of one with the same stream.
    void enter(OpenFile file);

    /// The file behind a stream, or null.
    const OpenFile *find(const std::FILE *stream) const;

    /// Forgets a stream; false when it is not in the table.
    bool forget(const std::FILE *stream);

private:
    std::vector<OpenFile> files_;
};

/// The table of the process.
OpenFileTable &open_files();

} // namespace qz::file

#endif
