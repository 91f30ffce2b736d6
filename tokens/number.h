/** @file
 *  Which texts are numbers, and their values. No locale has a say in it.
 */
#ifndef QZFILESHARED_TOKENS_NUMBER_H
#define QZFILESHARED_TOKENS_NUMBER_H

namespace qz::tokens {

enum class NumberType : int { None = 0, Integer = 1, Real = 2 };

/// The values are those of atoi and atof in the "C" locale; 0 where the type gives none.
struct Number {
    NumberType type = NumberType::None;
    int integer = 0;
    double real = 0.0;
};

Number parse_number(const char *text);

} // namespace qz::tokens

#endif
