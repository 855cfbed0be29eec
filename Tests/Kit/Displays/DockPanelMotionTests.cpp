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

TEST_F(DockPanelTest, ALabelThatFadesGetsEveryOtherFrameOfAUsualDisplay) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    const Point icon = firstIconCenter();
    const double begin = dock.platform.runLoop.now();

    window().listener().pointerEvent({PointerEvent::Kind::moved, icon});
    const auto opacity = [&] {
        window().nextFrame();
        return window().scene->nodes.back().opacity;
    };

    EXPECT_EQ(opacity(), 0);
    std::vector<double> shown;
    for (int i = 0; i < 12; ++i) {
        EXPECT_FALSE(window().isFrameRequested());
        advance(1.0 / 60);
        if (window().isFrameRequested())
            shown.push_back(opacity());
    }
    EXPECT_EQ(shown.size(), 4U);
    EXPECT_TRUE(std::ranges::is_sorted(shown));
    EXPECT_EQ(shown.back(), 1);
    EXPECT_NEAR(dock.platform.runLoop.now() - begin, 0.2, 0.001);
}

TEST_F(DockPanelTest, AChangeDuringAFadeIsShownWithTheNextFrame) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    window().listener().pointerEvent({PointerEvent::Kind::moved, firstIconCenter()});
    window().nextFrame();
    ASSERT_FALSE(window().isFrameRequested());

    dock.setTiles(3, 0);
    EXPECT_TRUE(window().isFrameRequested());
    window().nextFrame();

    EXPECT_TRUE(window().isFrameRequested()) << "tiles move while the label fades";
}

TEST_F(DockPanelTest, ItsPictureFollowsThePointerOnlyWhileTilesAreMagnifiedOrDragged) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    const Point icon = firstIconCenter();
    const auto followsAfter = [&](PointerEvent::Kind kind, Point at) {
        window().listener().pointerEvent({kind, at});
        return scene().followsPointer;
    };

    EXPECT_FALSE(followsAfter(PointerEvent::Kind::moved, icon)) << "only the label changes";
    EXPECT_FALSE(followsAfter(PointerEvent::Kind::pressed, icon));
    EXPECT_TRUE(followsAfter(PointerEvent::Kind::moved, {icon.x + 20, icon.y}));
    EXPECT_FALSE(followsAfter(PointerEvent::Kind::released, {icon.x + 20, icon.y}));
    dock.model.magnification.set(1.5);
    EXPECT_TRUE(followsAfter(PointerEvent::Kind::moved, icon));
    EXPECT_FALSE(followsAfter(PointerEvent::Kind::exited, {}));
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

    /// Shows frames for a while and returns the greatest jump from one to the next. `before` is
    /// the latest frame before them.
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

/// The most that anything moves in one frame when it moves by a dock's thickness or a tile's width.
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

}
}
