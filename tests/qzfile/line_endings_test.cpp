#include "qzfile/plain_line_endings.h"
#include "qzfile/qzfile/qzfile/line_endings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

using qz::file::convert_line_endings;
using qz::file::Converted;
using qz::test::plain_line_endings;

using namespace std::string_literals;

namespace {

/// The conversion with @p block_bytes read at a time.
std::string converted(const std::string &file, std::size_t block_bytes)
{
    std::string result;
    std::string block;
    std::size_t position = 0;
    do {
        const std::size_t taken = std::min(block_bytes - block.size(), file.size() - position);
        block.append(file, position, taken);
        position += taken;
        const Converted done =
            convert_line_endings(block.data(), block.size(), position == file.size());
        EXPECT_LE(done.written_bytes, done.read_bytes);
        result.append(block, 0, done.written_bytes);
        block.erase(0, done.read_bytes);
        EXPECT_LT(block.size(), qz::file::kPieceBytes);
    } while (position < file.size());
    EXPECT_TRUE(block.empty());
    return result;
}

const std::string k1021(1021, 'x');

} // namespace

TEST(LineEndings, Cases)
{
    const struct {
        const char *why;
        std::string file, result;
    } cases[] = {
        {"usual lines",                           "a\r\n\r\nb\r\n",          "a\n\nb\n"      },
        {"mixed lines",                           "a\r\nb\nc\r\nd",          "a\nb\nc\nd"    },
        {"what follows in the line goes",         "a\rb\rc\nd\r\n",          "a\rb\nd\n"     },
        {"the last line need not end",            "a\r\nb\r",                "a\nb\n"        },
        {"a NUL is a byte",                       "a\0b\r\n\0c\n"s,          "a\0b\n\0c\n"s  },
        {"a line that fills its piece",           k1021 + "\r\n",            k1021 + "\n"    },
        {"a line feed alone in the next piece",   k1021 + "x\r\ny",          k1021 + "x\n\ny"},
        {"only the piece with the return is cut", "a\rb" + k1021 + "d\re\n", "a\nxd\n"       },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(converted(c.file, 4096), c.result);
        EXPECT_EQ(plain_line_endings(c.file), c.result);
    }
}

TEST(LineEndings, LikeALineReaderInBlocksOfAnySize)
{
    std::mt19937 random(20251121);
    for (int round = 0; round < 3000; ++round) {
        // Line lengths around the piece, and few or many returns at or before the end of a line.
        const unsigned long_lines = random() % 4;
        const unsigned returns = random() % 8;
        std::string file;
        while (file.size() < 8000) {
            const std::size_t length = long_lines ? 1010 + random() % 30 : random() % 60;
            file.append(length * (1 + random() % (1 + long_lines)), 'x');
            if (random() % 8 < returns)
                file += '\r';
            if (random() % 8 == 0)
                file.append(random() % 3, "\r\0y"[random() % 3]);
            if (random() % 8)
                file += '\n';
        }
        const std::size_t block_bytes = 1024 + random() % 4096;
        ASSERT_EQ(converted(file, block_bytes), plain_line_endings(file))
            << "round " << round << ", blocks of " << block_bytes;
    }
}
