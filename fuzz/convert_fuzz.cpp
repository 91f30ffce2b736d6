// Any bytes, converted in blocks of any size as a plain reader of lines converts them.

#include "fuzz/require.h"
#include "qzfile/qzfile/qzfile/line_endings.h"
#include "tests/qzfile/plain_line_endings.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

using qz::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    // The first two bytes say how much is read at a time, and how often each byte comes: pieces are
    // longer than what the fuzzer likes to write.
    const std::size_t block_bytes = qz::file::kPieceBytes + 1 + data[0];
    std::string file;
    for (const std::uint8_t *byte = data + 2; byte != data + size; ++byte)
        file.append(*byte >= 'a' ? data[1] : 1u, static_cast<char>(*byte));

    std::string result;
    std::string block;
    std::size_t position = 0;
    do {
        const std::size_t taken = std::min(block_bytes - block.size(), file.size() - position);
        block.append(file, position, taken);
        position += taken;
        // Memory of exactly that size.
        const auto memory = std::make_unique<char[]>(block.size());
        block.copy(memory.get(), block.size());
        const qz::file::Converted done =
            qz::file::convert_line_endings(memory.get(), block.size(), position == file.size());
        require(done.written_bytes <= done.read_bytes && done.read_bytes <= block.size());
        result.append(memory.get(), done.written_bytes);
        require(std::equal(block.begin() + static_cast<std::ptrdiff_t>(done.read_bytes),
                           block.end(), memory.get() + done.read_bytes));
        block.erase(0, done.read_bytes);
        require(block.size() < qz::file::kPieceBytes);
    } while (position < file.size());
    require(block.empty());
    require(result == qz::test::plain_line_endings(file));
    return 0;
}
