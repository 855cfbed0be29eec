#include "Sources/LauncherEntries.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace vireline {
namespace {

using Statuses = std::map<std::string, TileStatus>;

TEST(LauncherEntries, ShowWhatIsVisibleOnly) {
    LauncherEntries entries;

    entries.update(":1.1", "mail", {.count = 3, .progress = 0.5});
    EXPECT_EQ(entries.statuses(), Statuses{});
    entries.update(":1.1", "mail", {.isCountVisible = true});
    EXPECT_EQ(entries.statuses(), (Statuses{{"mail", {.count = 3}}}));
    entries.update(":1.1", "mail", {.isProgressVisible = true, .isUrgent = true});
    EXPECT_EQ(entries.statuses(),
              (Statuses{{"mail", {.count = 3, .progress = 0.5, .isUrgent = true}}}));
    entries.update(":1.1", "mail", {.isCountVisible = false, .isUrgent = false});
    EXPECT_EQ(entries.statuses(), (Statuses{{"mail", {.progress = 0.5}}}));
}

TEST(LauncherEntries, WithoutANumberCountNothingAndBeginAtNothing) {
    LauncherEntries entries;

    entries.update(":1.1", "mail", {.isCountVisible = true, .isProgressVisible = true});

    EXPECT_EQ(entries.statuses(), (Statuses{{"mail", {.progress = 0.0}}}));
}

// Behaviour: tile-badges-2
TEST(LauncherEntries, ClampWhatIsBeyondItsLimits) {
    LauncherEntries entries;
    const auto status = [&](const LauncherEntries::Update& update) {
        entries.clear();
        entries.update(":1.1", "mail", update);
        const auto all = entries.statuses();
        return all.empty() ? TileStatus{} : all.begin()->second;
    };
    const auto progressOf = [&](double progress) {
        return status({.progress = progress, .isProgressVisible = true}).progress;
    };

    EXPECT_EQ(status({.count = 0, .isCountVisible = true}), TileStatus{});
    EXPECT_EQ(status({.count = -7, .isCountVisible = true}), TileStatus{});
    EXPECT_EQ(progressOf(-0.1), 0);
    EXPECT_EQ(progressOf(1.1), 1);
    EXPECT_EQ(progressOf(std::numeric_limits<double>::infinity()), 1);
    EXPECT_EQ(progressOf(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(LauncherEntries, BelongToTheProgramThatAnnouncedThem) {
    LauncherEntries entries;

    EXPECT_TRUE(entries.update(":1.1", "mail", {.count = 3, .isCountVisible = true}));
    EXPECT_FALSE(entries.update(":1.1", "notes", {.count = 4, .isCountVisible = true}));
    EXPECT_TRUE(entries.update(":1.2", "mail", {.count = 5, .isCountVisible = true}));
    EXPECT_EQ(entries.statuses(), (Statuses{{"mail", {.count = 5}}, {"notes", {.count = 4}}}));
    entries.remove(":1.2");
    EXPECT_EQ(entries.statuses(), (Statuses{{"mail", {.count = 3}}, {"notes", {.count = 4}}}));
    entries.remove(":1.1");
    EXPECT_EQ(entries.statuses(), Statuses{});
}

TEST(LauncherEntries, AreLimitedInNumber) {
    LauncherEntries entries;
    const LauncherEntries::Update one{.count = 1, .isCountVisible = true};
    for (int app = 0; app < 1000; ++app)
        entries.update(":1.1", "app" + std::to_string(app), one);
    EXPECT_EQ(entries.statuses().size(), 16U);
    EXPECT_FALSE(entries.update(":1.1", "late", one));

    entries.clear();
    for (int sender = 0; sender < 1000; ++sender)
        entries.update(":1." + std::to_string(sender), "app" + std::to_string(sender), one);
    EXPECT_EQ(entries.statuses().size(), 64U);
    EXPECT_FALSE(entries.update(":2.0", "late", one));

    entries.clear();
    EXPECT_TRUE(entries.update(":1.1", std::string(256, 'x'), one));
    entries.clear();
    EXPECT_FALSE(entries.update(":1.1", "", one));
    EXPECT_FALSE(entries.update(":1.1", std::string(257, 'x'), one));
    EXPECT_EQ(entries.statuses(), Statuses{});
}

// Behaviour: tile-badges-1
TEST(TileStatuses, ABadgeHasThreeCharactersAtMost) {
    EXPECT_EQ(TileStatuses::badge(1), "1");
    EXPECT_EQ(TileStatuses::badge(99), "99");
    EXPECT_EQ(TileStatuses::badge(100), "99+");
    EXPECT_EQ(TileStatuses::badge(std::numeric_limits<std::int64_t>::max()), "99+");
}

}
}
