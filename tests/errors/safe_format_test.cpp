#include "qzerr.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using halcyra::safe_format;

/// What a formatter writes; the byte after it must stay untouched.
template <typename... Arguments> std::string formatted(Arguments... arguments)
{
    char buffer[128];
    std::fill_n(buffer, sizeof buffer, '#');
    char *const end = safe_format(buffer, arguments...);
    EXPECT_EQ(*end, '#');
    return {buffer, end};
}

TEST(SafeFormat, Integer)
{
    constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();

    const struct {
        std::int64_t value;
        int width;
        const char *text;
    } cases[] = {
        {7,       0,  "7"                        },
        {0,       0,  "0"                        },
        {0,       -3, "0"                        },
        {-5,      3,  "-005"                     },
        {1234,    3,  "1234"                     },
        {42,      25, "0000000000000000000000042"},
        {kLowest, 0,  "-9223372036854775808"     },
    };

    for (const auto &c : cases)
        EXPECT_EQ(formatted(c.value, c.width), c.text);
    EXPECT_EQ(formatted(7, 0), "7") << "an int is an integer";
}

TEST(SafeFormat, Double)
{
    constexpr auto kInfinity = std::numeric_limits<double>::infinity();

    const struct {
        double value;
        int precision;
        const char *text;
    } cases[] = {
        {3.14159,                                  2,   "3.14"                  },
        {2.5,                                      0,   "3.0"                   },
        {-2.5,                                     -4,  "-3.0"                  },
        {0.05,                                     1,   "0.1"                   },
        {-1.25,                                    1,   "-1.3"                  },
        {1.0625,                                   6,   "1.062500"              },
        {0.999,                                    2,   "1.00"                  },
        {-0.5,                                     1,   "0.5"                   }, // loses its sign
        {1e300,                                    0,   "9223372036854775807.0" },
        {-kInfinity,                               0,   "-9223372036854775808.0"},
        {std::numeric_limits<double>::quiet_NaN(), 2,   "0.00"                  },
        {0.5,                                      400, "0.500000000000000000"  },
    };

    for (const auto &c : cases)
        EXPECT_EQ(formatted(c.value, c.precision), c.text);
}

TEST(SafeFormat, Text)
{
    EXPECT_EQ(formatted("line "), "line ");
    EXPECT_EQ(formatted(""), "");
    EXPECT_EQ(formatted(static_cast<const char *>(nullptr)), "");
}

} // namespace
