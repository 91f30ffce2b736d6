#include "qzfile.hpp"
#include "qzfile/scene.h"

#include <iterator>

TEST(Releases, NewestFirst)
{
    const auto &names = qzfile_get_past_release_names();
    ASSERT_EQ(names.size(), 51u);
    EXPECT_EQ(&names, &qzfile_get_past_release_names());
    EXPECT_EQ(names.front(), halcyra::release_name());

    const std::pair<int, const char *> cases[] = {
        {0,  "2025-3"},
        {2,  "2025-1"},
        {3,  "2024-4"},
        {46, "2014-1"},
        {47, "2013-3"},
        {50, "2013"  }
    };

    for (const auto &[place, name] : cases)
        EXPECT_EQ(*std::next(names.begin(), place), name) << place;
    EXPECT_EQ(scene::given_by(qzfile_get_release_name), "2025-3");
}

TEST(Releases, Compare)
{
    const struct {
        const char *why, *a, *b;
        int result;
    } cases[] = {
        {"within a year",                    "2025-3",  "2025-2", 1 },
        {"between years",                    "2024-1",  "2025-1", -1},
        {"the same",                         "2025-1",  "2025-1", 0 },
        {"the oldest of all",                "2013-1",  "2013",   1 },
        {"an unknown one is older",          "2013",    "2012-4", 1 },
        {"one of the future is unknown too", "2026-1",  "2013",   -1},
        {"a trailing blank counts",          "2025-3 ", "2013",   -1},
        {"all unknown ones are one",         "x",       "",       0 },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(compare_releases(c.a, c.b), c.result);
        EXPECT_EQ(compare_releases(c.b, c.a), -c.result);
    }
}
