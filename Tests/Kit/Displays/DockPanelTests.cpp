#include "Displays/DockPanel.hpp"
#include "Kit/Displays/DockPanelSpecs.hpp"
#include "Support/DockFixture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace vireline {
namespace {

using test::bottomSpec;
using test::FakePanel;
using test::leftSpec;
using test::rightSpec;

class DockPanelTest : public testing::Test {
protected:
    DockPanel& show(const PanelSpec& spec, bool autoHide) {
        panel_ =
            std::make_unique<DockPanel>(spec, autoHide, dock.context(), dock.platform.panelWindows);
        return *panel_;
    }

    [[nodiscard]] FakePanel& window() const { return dock.platform.panelWindows.panel(7); }
    /// What the display shows once all animations are done; no virtual time passes.
    [[nodiscard]] const Scene& scene() const {
        window().nextFrame();
        return *window().scene;
    }
    void advance(double seconds) { dock.platform.runLoop.advance(seconds); }
    [[nodiscard]] bool showsHandle() const {
        return scene().nodes.back().id.part == NodeID::Part::handle;
    }

    [[nodiscard]] Point firstIconCenter() const {
        const Scene shown = scene();
        const auto isIcon = [](const SceneNode& node) {
            return node.id.part == NodeID::Part::icon;
        };
        return std::ranges::find_if(shown.nodes, isIcon)->frame.center();
    }

    test::DockFixture dock;

private:
    std::unique_ptr<DockPanel> panel_;
};

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

TEST_F(DockPanelTest, LeavingAgainStartsTheWaitAnew) {
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

TEST_F(DockPanelTest, AsksForNoFrameAtRest) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);

    EXPECT_FALSE(window().isFrameRequested());
}

TEST_F(DockPanelTest, ManyPointerMovesBetweenTwoFramesMakeOneScene) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    const int before = window().presentations;

    for (int i = 0; i < 10; ++i) {
        window().listener().pointerEvent({PointerEvent::Kind::moved, {100.0 + i, 60}});
    }
    window().nextFrame();

    EXPECT_EQ(window().presentations, before + 1);
}

TEST_F(DockPanelTest, FramesGoOnUntilTheLastAnimationHasEnded) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    dock.setTiles(3, 0);

    window().nextFrame();
    EXPECT_TRUE(window().isFrameRequested());
    advance(0.1);
    window().nextFrame();
    EXPECT_TRUE(window().isFrameRequested());
    advance(0.11);
    window().nextFrame();
    EXPECT_FALSE(window().isFrameRequested());
}

TEST_F(DockPanelTest, ADesktopThatAsksForLessMotionGetsNone) {
    dock.platform.motionSettings.reduces = true;
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    dock.setTiles(3, 0);

    window().nextFrame();

    EXPECT_FALSE(window().isFrameRequested());
}

class DockInMotion : public DockPanelTest {
protected:
    /// Where everything but the label is on the display, y downwards, and how much of it shows.
    struct Place {
        Point corner;
        double opacity = 0;
    };
    using Places = std::map<NodeID, Place>;

    [[nodiscard]] Places places() const {
        const Rect& frame = window().frame;
        const Rect& hosted = *window().hostedFrame;
        const Point view{frame.x + hosted.x, -(frame.y + hosted.y + hosted.height)};
        Places found;
        for (const SceneNode& node : window().scene->nodes) {
            const Point offset = node.offset();
            found[node.id] = {{view.x + node.frame.x + offset.x, view.y + node.frame.y + offset.y},
                              node.opacity};
        }
        return found;
    }

    /// How far anything has jumped that shows in both; what does not show may be anywhere.
    static double jump(const Places& before, const Places& after) {
        constexpr double visible = 0.02;
        double most = 0;
        for (const auto& [id, place] : after) {
            const auto found = before.find(id);
            if (found == before.end()) {
                most = std::max(most, place.opacity > 0.2 ? 1000.0 : 0.0);
            } else if (place.opacity > visible && found->second.opacity > visible) {
                most = std::max({most, std::abs(place.corner.x - found->second.corner.x),
                                 std::abs(place.corner.y - found->second.corner.y)});
            }
        }
        return most;
    }

    /// Shows frames for a while and tells the greatest jump from one to the next, `before` being
    /// what was seen last.
    double greatestJump(Places before, double seconds) {
        constexpr double step = 1.0 / 60;
        double most = 0;
        for (double passed = 0; passed < seconds; passed += step) {
            window().nextFrame();
            const Places now = places();
            most = std::max(most, jump(before, now));
            before = now;
            advance(step);
        }
        return most;
    }
};

/// What a movement over a dock's thickness, or a tile's width, comes to in one frame at most.
constexpr double fastest = 25;

TEST_F(DockInMotion, SlidesOutToTheEdgeAndBack) {
    for (const PanelSpec& spec : {bottomSpec, leftSpec, rightSpec}) {
        dock.setTiles(3, 0);
        show(spec, true);
        window().listener().mouseEntered();
        Places before = places();
        EXPECT_LT(greatestJump(before, 0.5), fastest);
        before = places();
        EXPECT_EQ(before.size(), 12U);

        window().listener().mouseExited();
        advance(0.61);
        EXPECT_LT(greatestJump(before, 0.5), fastest);
        EXPECT_EQ(places().size(), 1U) << "the handle";
    }
}

TEST_F(DockInMotion, TurnsRoundHalfway) {
    dock.setTiles(3, 0);
    show(bottomSpec, true);
    window().listener().mouseEntered();
    greatestJump(places(), 0.5);
    window().listener().mouseExited();
    advance(0.6);
    for (int i = 0; i < 6; ++i) {
        greatestJump(places(), 0.1);
        const Places before = places();
        if (i % 2 == 0) {
            window().listener().mouseEntered();
        } else {
            window().listener().mouseExited();
            advance(0.6);
        }
        EXPECT_LT(greatestJump(before, 0.1), fastest) << i;
    }
}

TEST_F(DockInMotion, KeepsItsTilesInTheirPlacesWhileItGrowsAroundThem) {
    for (const PanelSpec& spec : {bottomSpec, leftSpec, rightSpec}) {
        dock.setTiles(3, 0);
        DockPanel& panel = show(spec, false);
        const bool isBottom = spec.position == DockPosition::bottom;
        const Places before = places();

        // One more tile makes the planned frame longer on both sides.
        dock.setTiles(4, 0);
        PanelSpec longer = spec;
        (isBottom ? longer.frame.x : longer.frame.y) -= 25;
        (isBottom ? longer.frame.width : longer.frame.height) += 50;
        panel.update(longer, false);

        EXPECT_LT(greatestJump(before, 0.3), fastest);
        EXPECT_EQ(places().size(), before.size() + 2);
    }
}

TEST_F(DockInMotion, DoesNotFlyToAnotherDisplay) {
    dock.setTiles(3, 0);
    DockPanel& panel = show(bottomSpec, false);
    PanelSpec elsewhere = bottomSpec;
    elsewhere.frame.x += 2000;
    dock.setTiles(3, 1);
    panel.update(elsewhere, false);
    window().nextFrame();

    for (const auto& [id, place] : places())
        EXPECT_GT(place.corner.x, 2000);
}

TEST_F(DockPanelTest, WithLessMotionTheWindowExpandsAtOnce) {
    dock.platform.motionSettings.reduces = true;
    show(bottomSpec, true);

    window().listener().mouseEntered();

    EXPECT_EQ(window().frame, (Rect{100, 0, 300, 88}));
    EXPECT_FALSE(window().frameChanges.back().animate);
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
