#include "ClientWindows/WindowPlacement.hpp"
#include "Support/Printing.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using Placement = WindowPlacement::Placement;
using Snapshots = std::vector<ScreenSnapshot>;

/// The primary display with a menu bar of 30 points.
ScreenSnapshot primaryWithMenuBar() {
    ScreenSnapshot screen = test::sampleScreen(1, {0, 0, 1920, 1080});
    screen.visibleFrame = {0, 0, 1920, 1050};
    return screen;
}

/// A display to the left of the primary and lower.
ScreenSnapshot lowerLeft() {
    return test::sampleScreen(2, {-1280, -200, 1280, 1024});
}

FillContext reserved(DockPosition position, double magnification = 1, double iconSize = 44) {
    return {.position = position,
            .dockReserved = true,
            .magnification = magnification,
            .configuredIconSize = iconSize};
}

// Behaviour: window-mover-1
TEST(WindowPlacement, LeavesAReservedBottomDockAndItsMagnifiedIconsTheirRoom) {
    EXPECT_EQ(WindowPlacement::fillFrame(primaryWithMenuBar(), Snapshots{primaryWithMenuBar()},
                                         reserved(DockPosition::bottom, 2, 48)),
              (Placement{{0, 30}, {1920, 1050 - 140}}));
}

// Behaviour: window-mover-2
TEST(WindowPlacement, FillsTheWholeVisibleFrameWhereNoDockIsReserved) {
    FillContext context = reserved(DockPosition::bottom, 2, 48);
    context.dockReserved = false;

    EXPECT_EQ(
        WindowPlacement::fillFrame(primaryWithMenuBar(), Snapshots{primaryWithMenuBar()}, context),
        (Placement{{0, 30}, {1920, 1050}}));
}

TEST(WindowPlacement, LeavesASideDockItsStrip) {
    const Snapshots screens{primaryWithMenuBar(), lowerLeft()};

    EXPECT_EQ(WindowPlacement::fillFrame(lowerLeft(), screens, reserved(DockPosition::left)),
              (Placement{{-1280 + 66, 256}, {1280 - 66, 1024}}));
    EXPECT_EQ(WindowPlacement::fillFrame(lowerLeft(), screens, reserved(DockPosition::right)),
              (Placement{{-1280, 256}, {1280 - 66, 1024}}));
}

TEST(WindowPlacement, LeavesMagnifiedIconsOfASideDockTheirRoom) {
    EXPECT_EQ(WindowPlacement::fillFrame(primaryWithMenuBar(), Snapshots{primaryWithMenuBar()},
                                         reserved(DockPosition::left, 1.5, 40)),
              (Placement{{86, 30}, {1920 - 86, 1050}}));
}

TEST(WindowPlacement, AMagnificationThatDoesNotGrowTakesNoRoom) {
    EXPECT_EQ(WindowPlacement::fillFrame(primaryWithMenuBar(), Snapshots{primaryWithMenuBar()},
                                         reserved(DockPosition::bottom, 0.5, 100)),
              (Placement{{0, 30}, {1920, 1050 - 92}}));
}

TEST(WindowPlacement, CentresAWindowOnTheWholeDisplay) {
    const Snapshots screens{primaryWithMenuBar(), lowerLeft()};

    EXPECT_EQ(WindowPlacement::centeredAXPosition({400, 300}, primaryWithMenuBar(), screens),
              (Point{760, 390}));
    EXPECT_EQ(WindowPlacement::centeredAXPosition({400, 301}, lowerLeft(), screens),
              (Point{-840, 617.5}));
}

// Behaviour: window-mover-3
TEST(WindowPlacement, FindsNoDisplayForAWindowWhoseCentreIsBesideAll) {
    const Snapshots screens{primaryWithMenuBar(), lowerLeft()};

    // 99 points of this one are still visible.
    EXPECT_EQ(WindowPlacement::displayContaining({1821, 100}, {200, 100}, screens), std::nullopt);
    EXPECT_EQ(WindowPlacement::displayContaining({1819, 100}, {200, 100}, screens), 1U);
}

TEST(WindowPlacement, FindsTheDisplayThatHoldsTheCentre) {
    const Snapshots screens{primaryWithMenuBar(), lowerLeft()};

    EXPECT_EQ(WindowPlacement::displayContaining({-120, 500}, {200, 100}, screens), 2U);
    EXPECT_EQ(WindowPlacement::displayContaining({-80, 500}, {200, 100}, screens), 1U);
}

TEST(WindowPlacement, FindsTheFirstOfDisplaysThatOverlap) {
    const Snapshots screens{primaryWithMenuBar(), test::sampleScreen(2, {0, 0, 1920, 1080})};

    EXPECT_EQ(WindowPlacement::displayContaining({10, 10}, {20, 20}, screens), 1U);
}

TEST(WindowPlacement, AWindowThatWasCentredIsFoundWhereItWasPut) {
    const Snapshots screens{primaryWithMenuBar(), lowerLeft(),
                            test::sampleScreen(3, {1920, 700, 800, 600})};
    const Size size{700, 500};

    for (const ScreenSnapshot& screen : screens) {
        const Point corner = WindowPlacement::centeredAXPosition(size, screen, screens);
        EXPECT_EQ(WindowPlacement::displayContaining(corner, size, screens), screen.id);
    }
}

TEST(WindowPlacement, HasNoAnswersWithoutScreens) {
    EXPECT_EQ(WindowPlacement::centeredAXPosition({400, 300}, primaryWithMenuBar(), {}), Point{});
    EXPECT_EQ(WindowPlacement::fillFrame(primaryWithMenuBar(), {}, reserved(DockPosition::bottom)),
              Placement{});
    EXPECT_EQ(WindowPlacement::displayContaining({10, 10}, {20, 20}, {}), std::nullopt);
}

TEST(WindowPlacement, AWindowWhoseCentreIsBelowEveryDisplayIsOnNone) {
    const Snapshots screens{primaryWithMenuBar()};

    EXPECT_EQ(WindowPlacement::displayContaining({10, 1000}, {200, 200}, screens), std::nullopt);
    EXPECT_EQ(WindowPlacement::displayContaining({10, 1000}, {200, 150}, screens), 1U);
}

}
}
