// The one token entry point that does more than forward; plain_calls.f90 calls all of them.

#include "qzfortran.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(TokenEntries, ATokenIsFollowedByNuls)
{
    const std::string longest(260, 'x');
    const int indices[] = {0, 1, 2};
    int list = -1;
    QZTOKENF_NEW(&list, ("Beta " + longest).c_str(), " ", "", "", "", "");

    std::string variable(300, '.');
    EXPECT_EQ(QZTOKENF_GET_TOKEN(&list, &indices[0], variable.data()), 0);
    EXPECT_EQ(variable, "Beta" + std::string(251, '\0') + std::string(45, '.'));
    EXPECT_EQ(QZTOKENF_GET_TOKEN(&list, &indices[1], variable.data()), 0);
    EXPECT_EQ(variable, longest.substr(0, 255) + std::string(45, '.'));
    EXPECT_EQ(QZTOKENF_GET_TOKEN(&list, &indices[2], variable.data()), -1);
    EXPECT_EQ(variable, longest.substr(0, 255) + std::string(45, '.')) << "nothing stored";
    QZTOKENF_DELETE(&list);
}

} // namespace
