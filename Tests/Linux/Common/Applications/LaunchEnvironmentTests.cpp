#include "Applications/Launching/LaunchEnvironment.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireline {
namespace {

using xdg::LaunchEnvironment::Change;

bool has(const std::vector<Change>& changes, const Change& wanted) {
    return std::ranges::find(changes, wanted) != changes.end();
}

TEST(LaunchEnvironment, HasWhatTheProgramItselfWasStartedWith) {
    using namespace std::string_view_literals;
    const auto changes = xdg::LaunchEnvironment::restoring(
        "A=1\0DBUS_FATAL_WARNINGS_2=3\0DBUS_SESSION_BUS_ADDRESS=unix:path=/b\0B\0=odd\0"sv);

    EXPECT_TRUE(has(changes, {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/b"}));
    EXPECT_TRUE(has(changes, {"DBUS_FATAL_WARNINGS", std::nullopt}));
    EXPECT_EQ(std::ranges::find(changes, "A", &Change::name), changes.end());
}

TEST(LaunchEnvironment, DoesNotHandOnOurOwnStartupId) {
    using namespace std::string_view_literals;
    const auto changes = xdg::LaunchEnvironment::restoring("DESKTOP_STARTUP_ID=ours\0"sv);

    EXPECT_TRUE(has(changes, {"DESKTOP_STARTUP_ID", std::nullopt}));
    EXPECT_FALSE(has(changes, {"DESKTOP_STARTUP_ID", "ours"}));
}

}
}
