#include "Layout/ScreenSnapshot.hpp"
#include "Support/FakePanelWindows.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(ScreenSnapshot, CopiesWhatThePlatformReports) {
    const PlatformScreen screen{.number = 42,
                                .unitNumber = 3,
                                .frame = {-1920, 200, 1920, 1080},
                                .visibleFrame = {-1920, 240, 1920, 1040},
                                .backingScaleFactor = 2};
    const ScreenSnapshot expected{.id = 42,
                                  .unitNumber = 3,
                                  .frame = {-1920, 200, 1920, 1080},
                                  .visibleFrame = {-1920, 240, 1920, 1040},
                                  .backingScaleFactor = 2};
    EXPECT_EQ(ScreenSnapshot::of(screen), expected);
}

// Behaviour: screens-1
TEST(ScreenSnapshot, IgnoresAScreenWithoutADisplayID) {
    test::FakeScreens screens;
    screens.list.resize(3);
    screens.list[0].number = 9;
    screens.list[1].number = std::nullopt;
    screens.list[2].number = 4;

    const auto snapshots = ScreenSnapshot::current(screens);

    ASSERT_EQ(snapshots.size(), 2U);
    EXPECT_EQ(snapshots[0].id, 9U);
    EXPECT_EQ(snapshots[1].id, 4U);
}

TEST(ScreenSnapshot, AcceptsZeroAsADisplayID) {
    PlatformScreen screen;
    screen.number = 0;
    EXPECT_TRUE(ScreenSnapshot::of(screen));
}

}
}
