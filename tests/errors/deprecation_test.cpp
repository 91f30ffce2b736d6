// Runs twice: with HALCYRA_DEPRECATION_WARNING set to nothing, and without it.

#include "qzerr.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace {

const bool wanted = std::getenv("HALCYRA_DEPRECATION_WARNING") != nullptr;

/// Standard error of a scope, or nothing in the run where no warning is wanted.
template <typename Calls> void expect_warnings(const std::string &expected, Calls calls)
{
    testing::internal::CaptureStderr();
    calls();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), wanted ? expected : "");
}

TEST(Deprecation, WarnsOncePerCallSite)
{
    static const char file[] = "mesh.c";
    static const char same_name[] = "mesh.c";
    const std::pair<const char *, int> sites[] = {
        {file,      7},
        {file,      8},
        {same_name, 7}
    };
    const auto warn_everywhere = [&] {
        for (const auto &[name, line] : sites)
            EXPECT_EQ(qzlog_deprecation_warning(name, line, "load", "use %s, %d\n", "open", 2), 1);
    };
    expect_warnings("WARNING DEPRECATION for load (mesh.c:7): use open, 2\n"
                    "WARNING DEPRECATION for load (mesh.c:8): use open, 2\n"
                    "WARNING DEPRECATION for load (mesh.c:7): use open, 2\n",
                    [&] {
                        warn_everywhere();
                        warn_everywhere();
                    });
}

TEST(Deprecation, ASuppressedSiteMayStillWarnLater)
{
    const auto warn = [] { qzlog_deprecation_warning("scope.c", 1, "f", "old\n"); };
    expect_warnings("WARNING DEPRECATION for f (scope.c:1): old\n", [&] {
        {
            const QzerrSuppressDeprecation outer;
            {
                const QzerrSuppressDeprecation inner;
                warn();
            }
            warn();
        }
        warn();
    });
}

TEST(Deprecation, AStreamTakenAwayInTheScopeStaysAway)
{
    expect_warnings("", [] {
        {
            const QzerrSuppressDeprecation scope;
            qzerr_file(0, nullptr);
        }
        EXPECT_EQ(qzerr_throw(0, QZERR_FATAL, "x"), 1);
    });
    qzerr_file(0, stderr);
}

TEST(Deprecation, NamesAreNoFormats)
{
    expect_warnings("WARNING DEPRECATION for operator% (50%sure.c:3): old\n",
                    [] { qzlog_deprecation_warning("50%sure.c", 3, "operator%", "old\n"); });
}

TEST(Deprecation, TheEnvironmentIsReadOnce)
{
    qzlog_deprecation_warning("first.c", 1, "f", "%s", "");
    static char setting[] = "HALCYRA_DEPRECATION_WARNING=1";
    putenv(setting);
    expect_warnings("WARNING DEPRECATION for f (late.c:1): old\n",
                    [] { qzlog_deprecation_warning("late.c", 1, "f", "old\n"); });
}

} // namespace
