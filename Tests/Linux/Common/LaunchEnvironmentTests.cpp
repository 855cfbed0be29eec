#include "Applications/Launching/LaunchEnvironment.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace vireline {
namespace {

using xdg::LaunchEnvironment::Change;
using xdg::LaunchEnvironment::Variables;

bool has(const std::vector<Change>& changes, const Change& wanted) {
    return std::ranges::find(changes, wanted) != changes.end();
}

bool mentions(const std::vector<Change>& changes, const std::string& name) {
    return std::ranges::find(changes, name, &Change::name) != changes.end();
}

TEST(LaunchEnvironment, IsReadFromABlock) {
    EXPECT_EQ(xdg::LaunchEnvironment::parse(std::string_view{"A=1\0B=x=y\0=odd\0none\0C=", 22}),
              (Variables{{"A", "1"}, {"B", "x=y"}, {"C", ""}}));
}

TEST(LaunchEnvironment, WhatWeSetIsTakenBack) {
    const auto changes = xdg::LaunchEnvironment::restoring(
        {{"HOME", "/h"}, {"LANG", "de"}, {"GONE", "g"}},
        {{"HOME", "/h"}, {"LANG", "C"}, {"QT_QPA_PLATFORM", "xcb"}});

    EXPECT_TRUE(has(changes, {"QT_QPA_PLATFORM", std::nullopt}));
    EXPECT_TRUE(has(changes, {"LANG", "de"}));
    EXPECT_TRUE(has(changes, {"GONE", "g"}));
    EXPECT_FALSE(mentions(changes, "HOME"));
}

TEST(LaunchEnvironment, WhatTheUserSetForQtIsKept) {
    const auto changes =
        xdg::LaunchEnvironment::restoring({{"QT_SCALE_FACTOR", "2"}}, {{"QT_SCALE_FACTOR", "2"}});

    EXPECT_FALSE(mentions(changes, "QT_SCALE_FACTOR"));
}

TEST(LaunchEnvironment, OurOwnStartupIdIsNotHandedOn) {
    const auto changes = xdg::LaunchEnvironment::restoring({{"DESKTOP_STARTUP_ID", "ours"}}, {});

    EXPECT_TRUE(has(changes, {"DESKTOP_STARTUP_ID", std::nullopt}));
    EXPECT_FALSE(has(changes, {"DESKTOP_STARTUP_ID", "ours"}));
}

TEST(LaunchEnvironment, OfThisProcessKnowsWhatItSet) {
    ASSERT_EQ(setenv("VIRELINE_TEST_VARIABLE", "1", 1), 0);

    const auto changes = xdg::LaunchEnvironment::changes();
    unsetenv("VIRELINE_TEST_VARIABLE");

    EXPECT_TRUE(has(changes, {"VIRELINE_TEST_VARIABLE", std::nullopt}));
    EXPECT_FALSE(mentions(changes, "PATH"));
}

}
}
