/// What a dock's window shows over time: a complete panel with its view and its animator.
#include "Displays/DockPanel.hpp"
#include "Kit/Displays/DockPanelSpecs.hpp"
#include "Support/DockFixture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <ranges>

namespace vireline {
namespace {

using test::bottomSpec;
using test::leftSpec;
using test::rightSpec;

class DockPanelDrawingTest : public testing::Test {
protected:
    DockPanel& show(const PanelSpec& spec, bool autoHide) {
        panel_ =
            std::make_unique<DockPanel>(spec, autoHide, dock.context(), dock.platform.panelWindows);
        return *panel_;
    }

    [[nodiscard]] test::FakePanel& window() const { return dock.platform.panelWindows.panel(7); }

    /// The first icon's distance from its place after this much more time.
    [[nodiscard]] double bounceAfter(double seconds) {
        dock.platform.runLoop.advance(seconds);
        window().nextFrame();
        const auto& nodes = window().scene->nodes;
        const auto icon = std::ranges::find_if(
            nodes, [](const SceneNode& node) { return node.id.part == NodeID::Part::icon; });
        return std::hypot(icon->bounce.x, icon->bounce.y);
    }

    test::DockFixture dock;

private:
    std::unique_ptr<DockPanel> panel_;
};

TEST_F(DockPanelDrawingTest, AnAppThatLaunchesBobsInADockThatComesOutMeanwhile) {
    dock.setTiles(1, 0);
    for (const PanelSpec& spec : {bottomSpec, leftSpec, rightSpec}) {
        show(spec, true);
        dock.model.launching.set({"p0"});
        window().listener().mouseEntered();
        EXPECT_NEAR(bounceAfter(0), 0, 1e-9);
        EXPECT_NEAR(bounceAfter(0.15), 6, 1e-6);
        EXPECT_NEAR(bounceAfter(0.15), 12, 1e-9);
        EXPECT_NEAR(bounceAfter(0.3), 0, 1e-9);
        EXPECT_TRUE(window().isFrameRequested());

        dock.model.launching.set({});
        static_cast<void>(bounceAfter(0.1));
        EXPECT_EQ(bounceAfter(0.25), 0);
        EXPECT_FALSE(window().isFrameRequested());
    }
}

TEST_F(DockPanelDrawingTest, AnAppThatLaunchesBobsInADockThatIsMadeMeanwhile) {
    dock.setTiles(1, 0);
    dock.model.launching.set({"p0"});
    show(bottomSpec, false);
    EXPECT_NEAR(bounceAfter(0), 0, 1e-9);
    EXPECT_NEAR(bounceAfter(0.3), 12, 1e-9);
    dock.model.launching.set({});
    static_cast<void>(bounceAfter(0));
    EXPECT_EQ(bounceAfter(0.25), 0);
}

TEST_F(DockPanelDrawingTest, WithLessMotionALaunchingAppStandsRaised) {
    dock.setTiles(1, 0);
    dock.platform.motionSettings.reduces = true;
    dock.model.launching.set({"p0"});
    show(bottomSpec, false);
    EXPECT_EQ(bounceAfter(0), 12);
    EXPECT_EQ(bounceAfter(0.1), 12);
    EXPECT_FALSE(window().isFrameRequested());
}

TEST_F(DockPanelDrawingTest, ATileThatSettlesShrinksAndSlidesForTheSameTime) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    const auto icon = [&](double seconds) {
        dock.platform.runLoop.advance(seconds);
        window().nextFrame();
        // The dragged tile is painted last.
        for (const SceneNode& node : std::views::reverse(window().scene->nodes))
            if (node.id.part == NodeID::Part::icon && node.scale > 1)
                return node;
        return SceneNode{};
    };
    const Point first = window().scene->nodes.at(2).frame.center();
    window().listener().pointerEvent({PointerEvent::Kind::pressed, first});
    window().listener().pointerEvent({PointerEvent::Kind::moved, {first.x + 20, first.y}});
    EXPECT_EQ(icon(0).scale, 1.08);

    window().listener().pointerEvent({PointerEvent::Kind::cancelled, {}});
    static_cast<void>(icon(0));
    const SceneNode halfway = icon(0.1);
    EXPECT_NEAR(halfway.scale, 1.04, 1e-9);
    EXPECT_NEAR(halfway.slide.x, 10, 1e-6);
    EXPECT_GT(icon(0.09).scale, 1);
    EXPECT_EQ(icon(0.02).scale, SceneNode{}.scale);
}

TEST_F(DockPanelDrawingTest, OneLabelFadesIntoTheNext) {
    dock.setTiles(2, 0);
    show(bottomSpec, false);
    const auto opacities = [&](double seconds) {
        dock.platform.runLoop.advance(seconds);
        window().nextFrame();
        std::vector<double> found;
        for (const SceneNode& node : window().scene->nodes)
            if (node.id.part == NodeID::Part::label)
                found.push_back(node.opacity);
        return found;
    };
    const Point first = window().scene->nodes.at(2).frame.center();
    window().listener().pointerEvent({PointerEvent::Kind::moved, first});
    static_cast<void>(opacities(0));
    EXPECT_EQ(opacities(1), (std::vector<double>{1}));

    window().listener().pointerEvent({PointerEvent::Kind::moved, {first.x + 50, first.y}});
    static_cast<void>(opacities(0));
    const auto halfway = opacities(0.06);
    ASSERT_EQ(halfway.size(), 2U);
    EXPECT_NEAR(halfway[0] + halfway[1], 1, 1e-9);
    EXPECT_NEAR(halfway[1], 0.6846, 1e-3);
    EXPECT_EQ(opacities(0.07), (std::vector<double>{1}));
}

TEST_F(DockPanelDrawingTest, ItsWindowHasRoomForAllThatIsDrawnBeyondItsFrame) {
    dock.model.configuredIconSize.set(64);
    show(bottomSpec, false);
    EXPECT_EQ(window().overhang, Overhang{.top = 20});
    EXPECT_EQ(window().frame, bottomSpec.frame);

    show(leftSpec, false);
    EXPECT_EQ(window().overhang, Overhang{.right = 28});

    show(rightSpec, false);
    EXPECT_EQ(window().overhang, Overhang{.left = 28});
}

TEST_F(DockPanelDrawingTest, ASliverHasNothingBeyondItsFrame) {
    dock.model.configuredIconSize.set(64);
    DockPanel& panel = show(leftSpec, true);
    EXPECT_EQ(window().overhang, Overhang{});

    panel.applyCollapsed(false, true);
    EXPECT_EQ(window().overhang, Overhang{.right = 28});

    panel.applyCollapsed(true, true);
    EXPECT_EQ(window().overhang, Overhang{});
}

TEST_F(DockPanelDrawingTest, LargerIconsWithinTheSamePlanGetTheirRoom) {
    show(leftSpec, false);
    EXPECT_EQ(window().overhang, Overhang{.right = 7});
    dock.model.configuredIconSize.set(64);
    window().nextFrame();

    EXPECT_EQ(window().overhang, Overhang{.right = 28});
    EXPECT_EQ(window().frameChanges.back(), (test::FakePanel::FrameChange{leftSpec.frame, false}));
}

TEST_F(DockPanelDrawingTest, AnEventFromWithinACallDecidesWhereTheWindowIs) {
    DockPanel& panel = show(leftSpec, true);
    const auto enter = [this] { window().listener().mouseEntered(); };

    window().onSetOverhang = enter;
    panel.update(leftSpec, true);

    EXPECT_FALSE(panel.collapsed());
    EXPECT_EQ(window().frame, leftSpec.hoverFrame());
    EXPECT_EQ(window().overhang, Overhang{.right = 7});

    window().nextFrame();
    window().onRequestFrame = enter;
    panel.applyCollapsed(true, true);

    EXPECT_FALSE(panel.collapsed());
    EXPECT_EQ(window().frame, leftSpec.hoverFrame());
    EXPECT_EQ(window().overhang, Overhang{.right = 7});
}

}
}
