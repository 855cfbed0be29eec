#include "Kit/Displays/DockPanelTest.hpp"

#include <algorithm>
#include <cmath>
#include <map>

namespace vireline {
namespace {

using test::bottomSpec;
using test::DockPanelTest;
using test::FakePanel;
using test::leftSpec;
using test::rightSpec;

// Behaviour: dock-panel-1
TEST_F(DockPanelTest, StartsAsASliverWithAutoHideOn) {
    DockPanel& panel = show(bottomSpec, true);
    panel.orderFrontRegardless();

    EXPECT_EQ(window().frame, (Rect{100, 0, 300, 4}));
    EXPECT_TRUE(panel.collapsed());
    EXPECT_TRUE(showsHandle());
    EXPECT_TRUE(window().isVisible);
    EXPECT_FALSE(window().frameChanges.back().animate);
}

TEST_F(DockPanelTest, StandsOnItsPlannedFrameWithAutoHideOff) {
    DockPanel& panel = show(bottomSpec, false);

    EXPECT_EQ(window().frame, bottomSpec.frame);
    EXPECT_EQ(window().hostedFrame, (Rect{0, 0, 300, 84}));
    EXPECT_FALSE(panel.collapsed());
    EXPECT_FALSE(showsHandle());
}

// Behaviour: dock-panel-3
TEST_F(DockPanelTest, ExpandsToTheHoverFrameWhenThePointerTouchesTheSliver) {
    show(bottomSpec, true);

    window().listener().mouseEntered();

    EXPECT_EQ(window().frame, (Rect{100, 0, 300, 88}));
    EXPECT_TRUE(window().frameChanges.back().animate);
    EXPECT_FALSE(showsHandle());
}

// Behaviour: dock-panel-2
TEST_F(DockPanelTest, ComingBackInTimeKeepsItExpanded) {
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();

    window().listener().mouseExited();
    advance(0.3);
    window().listener().mouseEntered();
    advance(2);

    EXPECT_FALSE(panel.collapsed());
}

// Behaviour: dock-panel-2
TEST_F(DockPanelTest, CollapsesWithAnAnimationAfterThePointerStayedAway) {
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();

    window().listener().mouseExited();
    advance(0.59);
    EXPECT_FALSE(panel.collapsed());
    advance(0.02);

    EXPECT_TRUE(panel.collapsed());
    EXPECT_EQ(window().frame, bottomSpec.collapsedFrame());
    EXPECT_TRUE(window().frameChanges.back().animate);
}

TEST_F(DockPanelTest, LeavingAgainRestartsTheWait) {
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();
    window().listener().mouseExited();
    advance(0.5);
    window().listener().mouseExited();
    advance(0.5);

    EXPECT_FALSE(panel.collapsed());
    advance(0.11);
    EXPECT_TRUE(panel.collapsed());
}

// Behaviour: dock-panel-4
TEST_F(DockPanelTest, StartsNoTimerWithAutoHideOff) {
    show(bottomSpec, false);

    window().listener().mouseEntered();
    window().listener().mouseExited();

    EXPECT_EQ(dock.platform.runLoop.pendingTimers(), 0);
}

TEST_F(DockPanelTest, ThePointerLeavingASliverStartsNoTimer) {
    show(bottomSpec, true);

    window().listener().mouseExited();

    EXPECT_EQ(dock.platform.runLoop.pendingTimers(), 0);
}

TEST_F(DockPanelTest, TheStripStaysOnItsPlannedFrameInEveryState) {
    for (const PanelSpec& spec : {bottomSpec, leftSpec, rightSpec}) {
        show(spec, true);
        const auto hostedOnScreen = [&] {
            const Rect hosted = *window().hostedFrame;
            return Rect{window().frame.x + hosted.x, window().frame.y + hosted.y, hosted.width,
                        hosted.height};
        };
        window().listener().mouseEntered();

        EXPECT_EQ(hostedOnScreen(), spec.frame) << rawValue(spec.position);
    }
}

TEST_F(DockPanelTest, ACollapsedRightDockKeepsTheViewsRightEdgeAtTheDisplaysEdge) {
    show(rightSpec, true);

    EXPECT_EQ(window().frame, (Rect{1276, 100, 4, 300}));
    EXPECT_EQ(window().hostedFrame, (Rect{4 - 58, 0, 58, 300}));
}

TEST_F(DockPanelTest, ACollapsedDockMovesAsASliver) {
    DockPanel& panel = show(bottomSpec, true);
    PanelSpec moved = bottomSpec;
    moved.frame.x += 50;

    panel.update(moved, true);

    EXPECT_EQ(window().frame, moved.collapsedFrame());
    EXPECT_FALSE(window().frameChanges.back().animate);
}

TEST_F(DockPanelTest, TurningAutoHideOffExpandsAtOnceAndForgetsThePendingCollapse) {
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();
    window().listener().mouseExited();

    panel.update(bottomSpec, false);
    advance(1);

    EXPECT_FALSE(panel.collapsed());
    EXPECT_EQ(window().frame, bottomSpec.frame);
    EXPECT_EQ(window().hostedFrame, (Rect{0, 0, 300, 84}));
}

TEST_F(DockPanelTest, TakesThePointerOnTheStripAloneUnlessItHides) {
    dock.setTiles(2, 0);
    DockPanel& panel = show(bottomSpec, false);
    ASSERT_TRUE(scene().inputRegion);
    EXPECT_EQ(scene().inputRegion->height, 58);

    panel.update(bottomSpec, true);

    EXPECT_EQ(scene().inputRegion, (Rect{0, 0, 300, 88}));
}

TEST_F(DockPanelTest, AnOpenMenuHoldsItOpen) {
    dock.setTiles(1, 0);
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();
    const Point overIcon = firstIconCenter();
    window().listener().pointerEvent({PointerEvent::Kind::secondaryPressed, overIcon});
    ASSERT_TRUE(window().isMenuOpen());

    window().listener().mouseExited();
    advance(5);
    EXPECT_FALSE(panel.collapsed());
    window().dismissMenu();
    advance(0.7);

    EXPECT_TRUE(panel.collapsed());
}

TEST_F(DockPanelTest, ADraggedTileHoldsItOpenAndListensForEscape) {
    dock.setTiles(2, 0);
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();
    const Point overIcon = firstIconCenter();
    window().listener().pointerEvent({PointerEvent::Kind::pressed, overIcon});
    window().listener().pointerEvent({PointerEvent::Kind::moved, {overIcon.x + 10, overIcon.y}});
    EXPECT_TRUE(window().watchesForCancel);

    window().listener().mouseExited();
    advance(5);
    EXPECT_FALSE(panel.collapsed());
    window().listener().pointerEvent({PointerEvent::Kind::cancelled, {}});
    EXPECT_FALSE(window().watchesForCancel);
    advance(0.7);

    EXPECT_TRUE(panel.collapsed());
}

TEST_F(DockPanelTest, ADragToTheSliverOpensItAndItsEndLetsItCollapse) {
    DockPanel& panel = show(bottomSpec, true);

    window().listener().dragEntered({"file:///a"});
    EXPECT_FALSE(panel.collapsed());
    advance(5);
    EXPECT_FALSE(panel.collapsed());
    window().listener().dragExited();
    advance(0.7);

    EXPECT_TRUE(panel.collapsed());
}

TEST_F(DockPanelTest, StaysInForADragThatBringsNoFiles) {
    DockPanel& panel = show(bottomSpec, true);

    window().listener().dragEntered({"https://example.org/a", "file://elsewhere/b"});

    EXPECT_TRUE(panel.collapsed());
}

TEST_F(DockPanelTest, AMenuThatOpensWhileItWaitsHoldsItOpen) {
    dock.setTiles(1, 0);
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();
    const Point overIcon = firstIconCenter();
    window().listener().mouseExited();
    advance(0.3);
    window().listener().pointerEvent({PointerEvent::Kind::secondaryPressed, overIcon});

    advance(5);
    EXPECT_FALSE(panel.collapsed());
    window().dismissMenu();
    advance(0.7);

    EXPECT_TRUE(panel.collapsed());
}

TEST_F(DockPanelTest, AButtonThatWasReleasedWhileItWasInDragsNothingLater) {
    dock.setTiles(2, 0);
    DockPanel& panel = show(bottomSpec, true);
    window().listener().mouseEntered();
    const Point overIcon = firstIconCenter();
    window().listener().pointerEvent({PointerEvent::Kind::pressed, overIcon});
    window().listener().mouseExited();
    advance(0.7);
    ASSERT_TRUE(panel.collapsed());
    window().listener().pointerEvent({PointerEvent::Kind::released, overIcon});

    window().listener().mouseEntered();
    window().listener().pointerEvent({PointerEvent::Kind::moved, {overIcon.x + 10, overIcon.y}});

    EXPECT_FALSE(window().watchesForCancel);
    EXPECT_TRUE(dock.actionsTaken.empty());
}

TEST_F(DockPanelTest, AssistiveTechnologyReachesTheTilesThroughTheWindow) {
    dock.setTiles(1, 0);
    show(bottomSpec, false);

    const auto tiles = window().listener().accessibleTiles();
    ASSERT_EQ(tiles.size(), 3U);
    window().listener().pressTile(tiles[0].id);
    window().listener().showTileMenu(tiles[0].id);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p0 #7"}));
    ASSERT_EQ(window().menus.size(), 1U);
    EXPECT_EQ(window().menus[0].place,
              (MenuPlace{{tiles[0].frame.midX(), 84 - 58 - 4}, MenuPlace::Side::above}));
}

TEST_F(DockPanelTest, ADockThatHidesFromNowOnCollapsesSoon) {
    DockPanel& panel = show(bottomSpec, false);

    panel.update(bottomSpec, true);
    advance(0.59);
    EXPECT_FALSE(panel.collapsed());
    advance(0.02);

    EXPECT_TRUE(panel.collapsed());
    EXPECT_EQ(window().frame, (Rect{100, 0, 300, 4}));
}

TEST_F(DockPanelTest, ADockThatHidesFromNowOnStaysOutWhileThePointerIsThere) {
    DockPanel& panel = show(bottomSpec, false);
    window().listener().mouseEntered();

    panel.update(bottomSpec, true);
    advance(5);
    EXPECT_FALSE(panel.collapsed());
    window().listener().mouseExited();
    advance(0.61);

    EXPECT_TRUE(panel.collapsed());
}

TEST_F(DockPanelTest, AnotherPlanDoesNotHideADockAnySooner) {
    DockPanel& panel = show(bottomSpec, false);
    panel.update(bottomSpec, true);
    advance(0.4);

    panel.update(bottomSpec, true);
    advance(0.21);

    EXPECT_TRUE(panel.collapsed()) << "nor any later";
}

TEST_F(DockPanelTest, AReleaseThatGoesElsewhereLetsAHiddenDockCollapse) {
    dock.setTiles(3, 0);
    DockPanel& panel = show(bottomSpec, true);
    window().pointer().entered({150, 40});
    window().pointer().pressed(firstIconCenter());
    window().pointerState = {.isOverWindow = false, .isPrimaryHeld = true, .position = {}};
    window().pointer().left(window().pointerState);
    advance(5);
    EXPECT_FALSE(panel.collapsed()) << "the button is still down";

    window().pointerState.isPrimaryHeld = false;
    advance(0.5 + 0.61);

    EXPECT_TRUE(panel.collapsed());
    EXPECT_EQ(dock.platform.runLoop.pendingTimers(), 0);
}

TEST_F(DockPanelTest, AReleaseThatComesLateIsStillAClick) {
    dock.setTiles(3, 0);
    show(bottomSpec, false);
    const Point icon = firstIconCenter();
    window().pointer().pressed(icon);

    advance(0.26);
    window().pointer().released(icon, true);
    advance(5);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p0 #7"}));
    EXPECT_EQ(dock.platform.runLoop.pendingTimers(), 0);
}

}
}
