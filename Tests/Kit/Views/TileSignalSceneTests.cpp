#include "Model/DockMetrics.hpp"
#include "Support/DockRootViewTest.hpp"

namespace vireline {
namespace {

using test::DockRootViewTest;
using test::Kind;
using Part = NodeID::Part;

TEST_F(DockRootViewTest, ABadgeIsAtTheCornerOfItsIconAndGrowsWithIt) {
    dock.model.statuses.set({{"p1", {.count = 120}}});
    dock.model.magnification.set(2);
    dock.setTiles(3, 0);
    show();

    const auto atRest = nodes(Part::badge);
    ASSERT_EQ(atRest.size(), 1U);
    EXPECT_EQ(std::get<BadgeNode>(atRest[0].content).text, "99+");
    const Rect icon = icons().at(1).frame;
    EXPECT_EQ(atRest[0].frame.minY(), icon.minY());
    EXPECT_GT(atRest[0].frame.maxX(), icon.maxX());
    EXPECT_LT(atRest[0].frame.maxX(), icons().at(2).frame.minX());

    send(Kind::moved, centerOfIcon(1));
    const auto grown = nodes(Part::badge).at(0);
    EXPECT_NEAR(grown.frame.height / atRest[0].frame.height, 2, 0.05);
}

TEST_F(DockRootViewTest, AProgressBarIsInsideItsIcon) {
    dock.model.statuses.set({{"p0", {.progress = 0.25}}});
    dock.setTiles(2, 0);
    show();

    const auto bars = nodes(Part::progress);
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_EQ(std::get<ProgressNode>(bars[0].content).fraction, 0.25);
    EXPECT_EQ(icons().at(0).frame.united(bars[0].frame), icons().at(0).frame);
    dock.model.statuses.set({});
    EXPECT_TRUE(nodes(Part::progress).empty());
}

TEST_F(DockRootViewTest, AMarkTakesThePlaceOfTheDot) {
    dock.setTiles(0, 2);
    show();
    dock.model.marked.set({"u1"});

    const auto marks = nodes(Part::mark);
    const auto dots = nodes(Part::dot);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_EQ(dots.at(0).opacity, 1);
    EXPECT_EQ(dots.at(1).opacity, 0);
    EXPECT_EQ(marks[0].frame.center(), dots[1].frame.center());
    EXPECT_EQ(marks[0].frame.height, dots[1].frame.height);
    EXPECT_GT(marks[0].frame.width, 3 * dots[1].frame.width);
}

TEST_F(DockRootViewTest, AMarkRunsAlongADockAtTheSide) {
    dock.setTiles(0, 1);
    show(DockPosition::left);
    dock.model.marked.set({"u0"});

    const auto mark = nodes(Part::mark).at(0);
    EXPECT_GT(mark.frame.height, 3 * mark.frame.width);
}

// Behaviour: attention-3
TEST_F(DockRootViewTest, ATileBobsUnlessAnimationsAreReduced) {
    dock.setTiles(0, 1);
    show();
    dock.model.marked.set({"u0"});
    dock.model.bobbing.set({"u0"});

    EXPECT_NE(icons().at(0).bounce, (Point{0, 0}));
    dock.platform.motionSettings.reduces = true;
    EXPECT_EQ(icons().at(0).bounce, (Point{0, 0}));
    EXPECT_EQ(nodes(Part::mark).size(), 1U);
}

// Behaviour: attention-4
TEST_F(DockRootViewTest, ACollapsedDockStaysCollapsedAndShowsTheMarkOnItsLine) {
    dock.setTiles(0, 2);
    show();
    const double along = centerOfIcon(1).x;
    ui.collapsed.set(true);
    EXPECT_TRUE(nodes(Part::lineMark).empty());

    dock.model.marked.set({"u1"});
    dock.model.bobbing.set({"u1"});

    const auto marks = nodes(Part::lineMark);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_NEAR(marks[0].frame.center().x, along, 0.01);
    EXPECT_EQ(marks[0].frame.height, DockMetrics::sliverThickness);
    EXPECT_TRUE(ui.collapsed.get());
    EXPECT_TRUE(icons().empty());
}

// Behaviour: tile-badges-4
TEST_F(DockRootViewTest, AssistiveTechnologyIsToldWhatATileShows) {
    dock.setTiles(1, 1);
    show();
    dock.model.statuses.set({{"u0", {.count = 120, .progress = 0.333}}});
    dock.model.marked.set({"u0"});

    const auto tiles = view().accessibleTiles();
    EXPECT_EQ(tiles.at(0).value, "not running");
    EXPECT_EQ(tiles.at(1).value, "running, badge 120, 33 percent, wants attention");
}

}
}
