#include "qzfortran.h"
#include "qztoken.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

/// A list of "alpha 7 2.5 Beta".
class TokenEntries : public testing::Test {
protected:
    TokenEntries() { QZTOKENF_NEW(&list_, "alpha 7 2.5 Beta", " ", "", "", "", ""); }

    ~TokenEntries() override { QZTOKENF_DELETE(&list_); }

    std::string text(int list) const
    {
        char *joined = QZTOKENF_GET_STRING(&list);
        const std::string copy = joined != nullptr ? joined : "(null)";
        std::free(joined);
        return copy;
    }

    int list_ = -1;
};

TEST_F(TokenEntries, ATokenIsFollowedByNuls)
{
    const int index = 3;
    std::string variable(300, '.');
    EXPECT_EQ(QZTOKENF_GET_TOKEN(&list_, &index, variable.data()), 0);
    EXPECT_EQ(variable, "Beta" + std::string(251, '\0') + std::string(45, '.'));

    const std::string longest(260, 'x');
    QZTOKENF_REPLACE(&list_, &index, longest.c_str());
    EXPECT_EQ(QZTOKENF_GET_TOKEN(&list_, &index, variable.data()), 0);
    EXPECT_EQ(variable, longest.substr(0, 255) + std::string(45, '.'));

    const int none = 4;
    EXPECT_EQ(QZTOKENF_GET_TOKEN(&list_, &none, variable.data()), -1);
    EXPECT_EQ(variable, longest.substr(0, 255) + std::string(45, '.'));
}

TEST_F(TokenEntries, ReadAndSearch)
{
    const int indices[] = {0, 1, 2, 3};
    int whole = 0;
    double real = 0;
    EXPECT_EQ(QZTOKENF_NUM(&list_), 4);
    EXPECT_EQ(QZTOKENF_GET_INT(&list_, &indices[1], &whole), 0);
    EXPECT_EQ(whole, 7);
    EXPECT_EQ(QZTOKENF_GET_DOUBLE(&list_, &indices[2], &real), 0);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(QZTOKENF_FIND_TYPE(&list_, &indices[2]), 2);
    EXPECT_EQ(QZTOKENF_INDEX(&list_, "Beta"), 3);
    EXPECT_EQ(QZTOKENF_INDEXN(&list_, "alps", &indices[3]), 0);
    EXPECT_EQ(QZTOKENF_REGEX_COMPILE(&list_), 0);
    EXPECT_EQ(QZTOKENF_REGEX_INDEX(&list_, "Beta"), 3);
}

TEST_F(TokenEntries, Edit)
{
    const int first = 0;
    const int last = 3;
    EXPECT_EQ(QZTOKENF_TOUPPER(&list_), 0);
    EXPECT_EQ(QZTOKENF_TOLOWER_TOKEN(&list_, &last), 4);
    EXPECT_EQ(QZTOKENF_DELETE_TOKEN(&list_, &first), 0);
    EXPECT_EQ(text(list_), "7 2.5 beta");
    EXPECT_EQ(QZTOKENF_ADD(&list_, "gamma"), 0);
    EXPECT_EQ(text(list_), "7 2.5 beta gamma");
    EXPECT_EQ(QZTOKENF_CLEAR(&list_), 0);
    EXPECT_EQ(QZTOKENF_NUM(&list_), 0);
}

TEST_F(TokenEntries, WidthsReachTheListInTheirOrder)
{
    const int width = 3;
    const int left = 0;
    const int offset = 1;
    int other = -1;
    int expected = -1;
    QZTOKENF_NEW(&other, "", " ", "", "", "", "");
    qztoken_new(&expected, "", " ", "", "", "", "");

    QZTOKENF_ADDN(other, "delta", width, left, offset);
    qztoken_addn(expected, "delta", width, left, offset);
    EXPECT_EQ(text(other), text(expected));
    QZTOKENF_COPYN(&other, &list_, &width, &left, &offset);
    qztoken_copyn(expected, list_, width, left, offset);
    EXPECT_EQ(text(other), text(expected));
    QZTOKENF_MERGEN(&other, &list_, &width, &left, &offset);
    qztoken_mergen(expected, list_, width, left, offset);
    EXPECT_EQ(text(other), text(expected));
    QZTOKENF_MERGE(&other, &list_);
    qztoken_merge(expected, list_);
    EXPECT_EQ(text(other), text(expected));
    EXPECT_EQ(QZTOKENF_COPY(&other, &list_), 0);
    EXPECT_EQ(text(other), text(list_));

    QZTOKENF_DELETE(&other);
    qztoken_delete(expected);
    EXPECT_EQ(QZTOKENF_NUM(&other), -1);
}

} // namespace
