#include "tokens/token_test.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

namespace {

enum : int { kNone, kInteger, kReal };

struct NumberCase {
    const char *why;
    int type;
    std::vector<const char *> texts;
};

// clang-format off
const NumberCase kNumberCases[] = {
    {"whole numbers", kInteger, {"0", "12", "+12", "-12", "-0", "+0", "007", "-007"}},
    {"two signs, in this order", kInteger, {"+-5", "+-0", "+-2147483648"}},
    {"the limits of 32 bits", kInteger, {"2147483647", "-2147483648", "+2147483647"}},
    {"zeros in front do not count", kInteger, {"00000000000000000000000002147483647", "-000"}},
    {"beyond the limits", kReal, {"2147483648", "-2147483649", "+2147483648", "4294967296"}},
    {"far beyond", kReal,
     {"99999999999999999999", "18446744073709551621", "-18446744073709551617"}},
    {"a point", kReal, {"1.", ".5", "1.5", "-.5", "+.5", "0.", "-0.0", "00.10", "+-1.5", "+-.5"}},
    {"an exponent", kReal, {"1e5", "1E5", "-1.5E-3", "1.e+5", ".5e0", "1e05", "0e0", "1e-0000001"}},
    {"the ends of the range", kReal, {"1.7976931348623157e308", "5e-324", "1e-310", "0e99999"}},
    {"many digits", kReal,
     {"3.14159265358979323846264338327950288", "0.1e22", "9007199254740993.0"}},
    {"infinity", kReal, {"inf", "INF", "Infinity", "-inf", "+inf", "-INFINITY", "+-inf"}},
    {"not-a-number", kReal,
     {"nan", "NaN", "-nan", "+nan", "nan(1)", "NAN(abc_9)", "nan()", "+-nan"}},
    {"nothing to read", kNone, {"", "+", "-", "+-", ".", "-.", "+.", "e", "e5", ".e5"}},
    {"blanks", kNone, {" ", " 12", "12 ", "1 2", "- 1", "\t1", "1.5 ", " 1.5", "1e 5"}},
    {"signs in another order", kNone, {"++1", "--1", "-+1", "+--1", "1-", "1+", "++1.5", "-+inf"}},
    {"no hexadecimal form", kNone,
     {"0x10", "0X10", "-0x1", "+0x1", "+-0x1", "0x1p3", "0x1.8", "0x"}},
    {"other marks", kNone, {"1,5", "1_000", "1'000", "1.5.2", "12a", "a12", "0b1", "1e5x", "#1"}},
    {"an exponent without digits", kNone, {"1e", "1e+", "1.5E-", "1e+-5", "1ee5", "1e5.", "1e1.5"}},
    {"out of range", kNone, {"1e999", "-1e999", "1e-999", "1e309", "1.8e308", "1e99999999999"}},
    {"almost infinity", kNone,
     {"in", "infi", "infinit", "infinityx", "i", "n", "na", "nan(", "nan(-)"}},
    {"bytes above 127", kNone, {"\xb2", "1\xff", "\xff"}},
};

// clang-format on

/// What else than "not a number" such a value carries is the run-time's own.
bool same_value(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

/// The values that the standard conversions give in the "C" locale, where the type has one.
void expect_standard_values(const char *text)
{
    const List list{text};
    const int type = qztoken_find_type(list, 0);
    EXPECT_EQ(type, qz_number_type(text));
    int integer = 7;
    double real = 7.0;
    EXPECT_EQ(qztoken_get_int(list, 0, &integer), type == kInteger ? 0 : -1);
    EXPECT_EQ(integer, type == kInteger ? std::atoi(text) : 0);
    EXPECT_EQ(qztoken_get_double(list, 0, &real), type != kNone ? 0 : -1);
    // Not std::atof: that of some run-times knows neither infinity nor not-a-number.
    const double expected = type != kNone ? std::strtod(text, nullptr) : 0.0;
    EXPECT_TRUE(same_value(real, expected)) << real << " for " << expected;
}

TEST(Number, Table)
{
    for (const NumberCase &c : kNumberCases) {
        SCOPED_TRACE(c.why);
        for (const char *text : c.texts) {
            SCOPED_TRACE(text);
            EXPECT_EQ(messages_of([&] {
                          EXPECT_EQ(qz_number_type(text), c.type);
                          expect_standard_values(text);
                      }),
                      "");
        }
    }
    EXPECT_EQ(qz_number_type(nullptr), kNone);
}

/// The grammar, slowly: digits within 32 bits, or all that the standard conversion takes without
/// a blank, a second plus or an 'x', and within its range.
int slow_type(const std::string &text)
{
    const std::string body = text.substr(text[0] == '+' ? 1 : 0);
    const std::string digits = body.substr(body[0] == '-' ? 1 : 0);
    if (!digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos &&
        std::abs(std::strtod(body.c_str(), nullptr) + 0.5) <= 2147483647.5)
        return kInteger;
    if (body.empty() || body[0] == '+' || body.find_first_of(" xX") != std::string::npos)
        return kNone;
    char *end = nullptr;
    errno = 0;
    const double value = std::strtod(body.c_str(), &end);
    const bool out_of_range = errno == ERANGE && (std::isinf(value) || value == 0.0);
    return *end == '\0' && !out_of_range ? kReal : kNone;
}

std::string random_characters(std::mt19937 &random)
{
    const std::string characters = "0123456789012345678900..--+eEx ";
    std::string text(random() % 14, ' ');
    for (char &c : text)
        c = characters[random() % characters.size()];
    return text;
}

/// Up to 22 digits with a point among them, and often an exponent.
std::string random_real(std::mt19937 &random)
{
    std::string text(1 + random() % 22, '0');
    for (char &c : text)
        c = static_cast<char>('0' + random() % 10);
    text.insert(random() % text.size(), ".");
    if (random() % 2 != 0)
        text += "e" + std::to_string(static_cast<int>(random() % 70) - 35);
    const char *signs[] = {"", "", "-", "+", "+-"};
    return signs[random() % 5] + text;
}

TEST(Number, RandomTextsAgreeWithTheStandardConversions)
{
    std::mt19937 random(3);
    for (int i = 0; i < 100'000; ++i) {
        const std::string text = i % 3 == 0 ? random_characters(random) : random_real(random);
        ASSERT_EQ(qz_number_type(text.c_str()), slow_type(text)) << "<" << text << ">";
        expect_standard_values(text.c_str());
        ASSERT_FALSE(HasFailure()) << "<" << text << ">";
    }
}

TEST(Number, NoLocaleChangesAValue)
{
    const char *comma_locale = nullptr;
    for (const char *name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252"}) {
        if (comma_locale == nullptr)
            comma_locale = std::setlocale(LC_NUMERIC, name);
    }
    if (comma_locale == nullptr)
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    ASSERT_NE(std::atof("1.5"), 1.5) << "the locale does not do what the test needs";
    const List list("1.5 1e-3 1,5", {" "});
    double value = 0.0;
    EXPECT_EQ(qztoken_get_double(list, 0, &value), 0);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(qztoken_get_double(list, 1, &value), 0);
    EXPECT_EQ(value, 1e-3);
    EXPECT_EQ(qztoken_get_double(list, 2, &value), -1);
    std::setlocale(LC_NUMERIC, "C");
}

} // namespace
