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

/// What @p call writes into the @p promised bytes that it gets; those around them must keep.
template <typename Call>
std::string written(std::size_t promised, Call call, std::size_t bytes_before = 0)
{
    const std::string before(bytes_before, kGuard);
    const std::string behind(64, kGuard);
    std::string memory = before + std::string(promised, kGuard) + behind;
    call(memory.data() + bytes_before);
    EXPECT_EQ(memory.substr(0, bytes_before), before);
    EXPECT_EQ(memory.substr(bytes_before + promised), behind);
    return memory.substr(bytes_before, promised);
}

int decode_guarded(const std::string &text, std::string &out)
{
    int size = 0;
    out = written(3 * (text.size() / 4 + 1), [&](char *dest) {
        size = modp_b64_decode(dest, text.data(), static_cast<int>(text.size()));
    });
    out.resize(static_cast<std::size_t>(std::max(size, 0)));
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
            const auto encode = [&](char *dest) {
                const char *const bytes = src.data() + offset;
                EXPECT_EQ(modp_b64_encode(dest, bytes, static_cast<int>(len)),
                          static_cast<int>(text.size()));
            };
            const auto encode_by_table = [&](char *dest) {
                qz::base64::encode_groups_by_table(dest, src.data() + offset, len / 3);
            };
            const std::size_t whole_groups = len / 3 * 4;
            EXPECT_STREQ(written(text.size() + 1, encode, 15 - offset).c_str(), text.c_str());
            EXPECT_EQ(written(whole_groups, encode_by_table), text.substr(0, whole_groups));
            std::string decoded;
            EXPECT_EQ(decode_guarded(text, decoded), static_cast<int>(len));
            EXPECT_EQ(decoded, data);
            ASSERT_FALSE(HasFailure());
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

            const auto decoded_by = [&](auto decode) {
                return written(3 * expected_groups + 1, [&](char *dest) {
                    EXPECT_EQ(decode(dest, text.data(), groups), expected_groups);
                });
            };
            ASSERT_EQ(decoded_by(qz::base64::decode_groups),
                      decoded_by(qz::base64::decode_groups_by_table));
            ASSERT_FALSE(HasFailure());
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
