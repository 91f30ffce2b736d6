#include "common/base64/codec.h"
#include "common/plain_base64.h"
#include "qzbase64.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <string>
#include <vector>

namespace {

using qz::test::plain_encode;

constexpr char kGuard = '\x5A';
const std::string kFourZeros(4, '\0');
const std::string kEndsInNul("Zm9\0", 4);

std::string random_bytes(std::size_t len)
{
    static std::mt19937 generator(64);
    std::string bytes(len, '\0');
    std::generate(bytes.begin(), bytes.end(), [] { return static_cast<char>(generator()); });
    return bytes;
}

/// Memory whose bytes past what a call promised to write must keep the guard.
class Guarded {
public:
    Guarded(std::size_t offset, std::size_t promised)
        : bytes_(offset + promised + 64, kGuard), offset_(offset), promised_(promised)
    {}

    char *data() { return bytes_.data() + offset_; }

    bool intact() const
    {
        const auto is_guard = [](char c) { return c == kGuard; };
        const auto begin = bytes_.begin() + static_cast<std::ptrdiff_t>(offset_);
        return std::all_of(bytes_.begin(), begin, is_guard) &&
               std::all_of(begin + static_cast<std::ptrdiff_t>(promised_), bytes_.end(), is_guard);
    }

    const std::string &bytes() const { return bytes_; }

private:
    std::string bytes_;
    std::size_t offset_;
    std::size_t promised_;
};

int decode_guarded(const std::string &text, std::string &out)
{
    Guarded dest(0, 3 * (text.size() / 4 + 1));
    const int size = modp_b64_decode(dest.data(), text.data(), static_cast<int>(text.size()));
    EXPECT_TRUE(dest.intact()) << text;
    out.assign(dest.data(), static_cast<std::size_t>(std::max(size, 0)));
    return size;
}

TEST(Base64, KnownPairs)
{
    const struct {
        const char *why;
        std::string data, text;
    } cases[] = {
        {"nothing",                             "",                 ""        },
        {"one byte",                            "f",                "Zg=="    },
        {"two bytes",                           "fo",               "Zm8="    },
        {"a full group",                        "foo",              "Zm9v"    },
        {"zeros, which end no text",            kFourZeros,         "AAAAAA=="},
        {"the last characters of the alphabet", "\xFF\xEF\xBE\xFF", "/+++/w=="},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(modp::b64_encode(c.data), c.text);
        EXPECT_EQ(modp::b64_decode(c.text), c.data);
        EXPECT_EQ(modp::b64_decode(c.text.c_str()), c.data);
        EXPECT_EQ(modp::b64_encode(c.data.c_str()), plain_encode(c.data.c_str()));

        std::string in_place = c.data;
        EXPECT_EQ(&modp::b64_encode(in_place), &in_place);
        EXPECT_EQ(in_place, c.text);
        EXPECT_EQ(&modp::b64_decode(in_place), &in_place);
        EXPECT_EQ(in_place, c.data);
    }
    const char *no_text = nullptr;
    EXPECT_EQ(modp::b64_encode(no_text) + modp::b64_decode(no_text), "");
}

TEST(Base64, BadTexts)
{
    const std::pair<const char *, std::string> cases[] = {
        {"three characters",                        "Zm9"      },
        {"five characters",                         "Zm9vY"    },
        {"a blank",                                 "Zm 9v"    },
        {"a blank in a text of the right length",   "Zm 9"     },
        {"a line break",                            "Zm9v\nZm9"},
        {"the hyphen of another alphabet",          "Zm-v"     },
        {"the underscore of another alphabet",      "Zm_v"     },
        {"padding alone",                           "===="     },
        {"three of padding",                        "Z==="     },
        {"padding before the last two positions",   "Z=9v"     },
        {"padding before a character",              "Zm=v"     },
        {"padding in a group that is not the last", "Zg==Zm9v" },
        {"a bad character beside padding",          "Z!=="     },
        {"NUL",                                     kEndsInNul },
        {"a byte above 127",                        "Zm9\xE9"  },
    };

    for (const auto &[why, text] : cases) {
        SCOPED_TRACE(why);
        std::string out;
        EXPECT_EQ(decode_guarded(text, out), -1);
        EXPECT_EQ(modp::b64_decode(text), "");
        out = text;
        EXPECT_EQ(modp::b64_decode(out), "") << "in place";
    }
}

TEST(Base64, LengthsThatNoBufferHas)
{
    char dest[4] = {kGuard, kGuard, kGuard, kGuard};
    EXPECT_EQ(modp_b64_decode(dest, "Zm9v", -4), -1);
    EXPECT_EQ(modp_b64_decode(dest, "Zm9v", 0), 0);
    EXPECT_EQ(modp_b64_encode(dest, nullptr, INT_MAX), -1) << "2,863,311,532 characters";
    EXPECT_EQ(std::string(dest, 4), std::string(4, kGuard));

    EXPECT_EQ(modp_b64_encode(dest, "foo", -1), 0);
    EXPECT_EQ(std::string(dest, 4), std::string("\0ZZZ", 4)) << "only the NUL is written";
}

TEST(Base64, EveryLengthAndAlignment)
{
    for (std::size_t len = 0; len <= 200; ++len) {
        for (std::size_t offset = 0; offset < 16; ++offset) {
            SCOPED_TRACE(testing::Message() << len << " bytes at " << offset);
            // The source ends where its memory ends, so that a sanitizer sees a read past it.
            const std::string data = random_bytes(len);
            std::vector<char> src(offset + len);
            std::copy(data.begin(), data.end(), src.begin() + static_cast<std::ptrdiff_t>(offset));

            const std::string text = plain_encode(data);
            Guarded encoded(15 - offset, text.size() + 1);
            ASSERT_EQ(modp_b64_encode(encoded.data(), src.data() + offset, static_cast<int>(len)),
                      static_cast<int>(text.size()));
            ASSERT_STREQ(encoded.data(), text.c_str());
            ASSERT_TRUE(encoded.intact());

            Guarded by_table(0, len / 3 * 4);
            qz::base64::encode_groups_by_table(by_table.data(), src.data() + offset, len / 3);
            ASSERT_EQ(std::string(by_table.data(), len / 3 * 4), text.substr(0, len / 3 * 4));
            ASSERT_TRUE(by_table.intact());

            std::string decoded;
            ASSERT_EQ(decode_guarded(text, decoded), static_cast<int>(len));
            ASSERT_EQ(decoded, data);
        }
    }
}

// What a caller finds in its buffer after a bad text must not depend on the processor.
TEST(Base64, TheFastPathLeavesWhatTheTablesLeave)
{
    const std::string good = plain_encode(random_bytes(3 * 13));
    const std::size_t groups = good.size() / 4;
    for (std::size_t position = 0; position <= good.size(); ++position) {
        for (int byte = 0; byte < 256; ++byte) {
            SCOPED_TRACE(testing::Message() << "byte " << byte << " at " << position);
            std::string text = good;
            if (position < good.size())
                text[position] = static_cast<char>(byte);
            const std::size_t expected_groups =
                std::min(text.find_first_not_of(qz::test::kBase64Alphabet), good.size()) / 4;

            Guarded fast(0, 3 * expected_groups + 1);
            Guarded plain(0, 3 * expected_groups + 1);
            ASSERT_EQ(qz::base64::decode_groups(fast.data(), text.data(), groups), expected_groups);
            ASSERT_EQ(qz::base64::decode_groups_by_table(plain.data(), text.data(), groups),
                      expected_groups);
            ASSERT_EQ(fast.bytes(), plain.bytes());
            ASSERT_TRUE(fast.intact());
        }
    }
}

TEST(Base64, LongStrings)
{
    // Around one and two of the pieces that the string forms work in.
    for (std::size_t len : {6143U, 6144U, 6145U, 12'288U}) {
        SCOPED_TRACE(len);
        const std::string data = random_bytes(len);
        const std::string text = plain_encode(data);
        EXPECT_EQ(modp::b64_encode(data), text);
        EXPECT_EQ(modp::b64_decode(text), data);
        // Padding at the end of a piece is no padding of the text.
        for (std::size_t position = 63; position + 4 < text.size(); position += 64) {
            std::string bad = text;
            bad[position] = '=';
            ASSERT_EQ(modp::b64_decode(bad), "") << position;
        }
    }
}

} // namespace
