#include "Support/DockRootViewTest.hpp"

#include <algorithm>
#include <utility>

namespace vireline {
namespace {

using test::DockRootViewTest;
using test::Kind;

TEST_F(DockRootViewTest, ShowsPinnedRunningAndUtilityTilesInThisOrder) {
    dock.setTiles(2, 1);
    show();

    const auto shown = icons();
    ASSERT_EQ(shown.size(), 5U);
    const auto image = [&](std::size_t i) { return std::get<ImageNode>(shown[i].content).image; };
    EXPECT_EQ(image(0), dock.icons.icon("", "p0"));
    EXPECT_EQ(image(2), dock.icons.icon("", "u0"));
    EXPECT_EQ(image(3), dock.icons.icon("", "utility.downloads"));
    EXPECT_EQ(image(4), dock.icons.trashIcon());
    EXPECT_TRUE(std::ranges::is_sorted(shown, {}, [](const auto& n) { return n.frame.x; }));
    EXPECT_EQ(nodes(NodeID::Part::separator).size(), 2U);
}

TEST_F(DockRootViewTest, ADotShowsWhichAppsRunAndKeepsItsPlaceWhenHidden) {
    dock.setTiles(1, 1);
    show();

    const auto dots = nodes(NodeID::Part::dot);
    ASSERT_EQ(dots.size(), 4U);
    EXPECT_EQ(dots[0].opacity, 0);
    EXPECT_EQ(dots[1].opacity, 1);
    EXPECT_EQ(dots[2].opacity, 0);
    EXPECT_EQ(dots[0].frame.size(), (Size{4, 4}));
}

TEST_F(DockRootViewTest, MovingWithinATileOfAStripThatDoesNotGrowNeedsNoFrame) {
    dock.setTiles(2, 0);
    show();
    const Point first = centerOfIcon(0);
    send(Kind::moved, first);
    int frames = 0;
    view().onInvalidate = [&frames] { ++frames; };

    send(Kind::moved, {first.x + 3, first.y});
    EXPECT_EQ(frames, 0);
    send(Kind::moved, centerOfIcon(1));
    EXPECT_EQ(frames, 1);
    EXPECT_EQ(labelText(), "App p1");
}

TEST_F(DockRootViewTest, EveryMovementOverAStripThatGrowsNeedsAFrame) {
    dock.setTiles(2, 0);
    dock.model.magnification.set(2);
    show();
    const Point first = centerOfIcon(0);
    send(Kind::moved, first);
    int frames = 0;
    view().onInvalidate = [&frames] { ++frames; };

    send(Kind::moved, {first.x + 3, first.y});

    EXPECT_EQ(frames, 1);
}

// Behaviour: tiles-7
TEST_F(DockRootViewTest, WithoutADownloadsFolderOrATrashThereIsNoTileForIt) {
    dock.setTiles(1, 0);
    const auto names = [this] {
        show();
        std::vector<std::string> found;
        for (const AccessibleTile& tile : view().accessibleTiles())
            found.push_back(tile.label);
        return found;
    };
    using Names = std::vector<std::string>;
    const auto downloads = std::exchange(dock.platform.userFolders.downloadsFolder, std::nullopt);
    EXPECT_EQ(names(), (Names{"App p0", "Trash"}));
    dock.platform.userFolders.trashFolder.reset();
    EXPECT_EQ(names(), (Names{"App p0"}));
    EXPECT_EQ(icons().size(), 1U);
    dock.platform.userFolders.downloadsFolder = downloads;
    EXPECT_EQ(names(), (Names{"App p0", "Downloads"}));
}

TEST_F(DockRootViewTest, TheLabelNamesTheTileUnderThePointer) {
    dock.setTiles(2, 0);
    show();

    send(Kind::moved, centerOfIcon(0));
    EXPECT_EQ(labelText(), "App p0");
    send(Kind::moved, centerOfIcon(1));
    EXPECT_EQ(labelText(), "App p1");
    send(Kind::moved, centerOfIcon(2));
    EXPECT_EQ(labelText(), "Downloads");
    send(Kind::exited);
    EXPECT_EQ(labelText(), "");
}

TEST_F(DockRootViewTest, SideDocksShowNoLabel) {
    dock.setTiles(2, 0);
    show(DockPosition::left, 1000, 58);

    send(Kind::moved, centerOfIcon(0));

    EXPECT_EQ(labelText(), "");
}

// Behaviour: dock-strip-2
TEST_F(DockRootViewTest, WithoutMagnificationThePointerLeavesNoTrace) {
    dock.setTiles(3, 0);
    show();
    static_cast<void>(view().makeScene());
    const auto before = icons();

    send(Kind::moved, centerOfIcon(1));

    EXPECT_TRUE(icons() == before);
    const double slack = 1000 - DockOrdering::stripWidth({3, 0, 2}, 44);
    EXPECT_EQ(nodes(NodeID::Part::strip)[0].frame.x, slack / 2);
}

// Behaviour: dock-strip-3
TEST_F(DockRootViewTest, ThePointerMagnifiesTheTileUnderItAndNoneFarAway) {
    dock.setTiles(8, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);

    const Point first = centerOfIcon(0);
    send(Kind::moved, first);
    EXPECT_EQ(icons()[0].frame.width, 88);
    EXPECT_NEAR(icons()[2].frame.width, 48.2016, 1e-3);
    EXPECT_EQ(icons()[3].frame.width, 44);

    // Between the first two tiles; the fourth is two and a half tiles away.
    send(Kind::moved, {first.x + 25, first.y});
    EXPECT_NEAR(icons()[2].frame.width, 59.2016, 1e-3);
    EXPECT_NEAR(icons()[3].frame.width, 44, 1e-9);
}

TEST_F(DockRootViewTest, MagnificationThatIsSwitchedOffUnderThePointerLeavesTheStripInItsPlace) {
    dock.setTiles(3, 0);
    show(DockPosition::bottom, 1000, 128);
    const double start = icons()[0].frame.x;
    dock.model.magnification.set(2);
    const Point first = centerOfIcon(0);
    send(Kind::moved, {first.x - 10, first.y});
    ASSERT_GT(icons()[0].frame.width, 44);

    dock.model.magnification.set(1);

    EXPECT_EQ(icons()[0].frame.x, start);
}

TEST_F(DockRootViewTest, MagnificationEndsBeyondTheBandAndWhenThePointerLeaves) {
    dock.setTiles(3, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);
    const Point overIcon = centerOfIcon(1);

    send(Kind::moved, overIcon);
    send(Kind::moved, {overIcon.x, 128 - 67});
    EXPECT_EQ(icons()[1].frame.width, 44);
    send(Kind::moved, overIcon);
    EXPECT_EQ(icons()[1].frame.width, 88);
    send(Kind::exited);
    EXPECT_EQ(icons()[1].frame.width, 44);
}

/// A pointer that then rests would see the wrong strip for as long as it does.
TEST_F(DockRootViewTest, TheBandIsThatOfIconsWhoseSizeHasChangedSinceTheLastFrame) {
    dock.setTiles(3, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 148);
    const Point aboveSmallIcons{500, 148 - 70};
    static_cast<void>(view().makeScene());

    dock.model.configuredIconSize.set(64);
    send(Kind::moved, aboveSmallIcons);
    EXPECT_GT(icons()[2].frame.width, 64);

    dock.model.configuredIconSize.set(44);
    send(Kind::moved, aboveSmallIcons);
    EXPECT_EQ(icons()[2].frame.width, 44);
}

// Behaviour: dock-strip-4
TEST_F(DockRootViewTest, APointerBeyondTheFirstOrTheLastTileHoldsThatTileInPlace) {
    dock.setTiles(3, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);
    // At rest the strip extends from 367.5 to 632.5.
    send(Kind::moved, {652.5, 120});
    EXPECT_NEAR(icons().back().frame.midX(), 652.5, 1e-9);
    EXPECT_NEAR(icons().back().frame.width, 73.3220, 1e-3);

    send(Kind::moved, {347.5, 120});
    EXPECT_NEAR(icons().front().frame.midX(), 347.5, 1e-9);
    EXPECT_NEAR(icons().front().frame.width, 73.3220, 1e-3);
}

// Behaviour: dock-strip-6
TEST_F(DockRootViewTest, IconsShrinkToSixteenPointsAndThenTheStripOverflows) {
    dock.setTiles(60, 0);
    show(DockPosition::bottom, 400);
    EXPECT_EQ(icons()[0].frame.width, 16);
    EXPECT_GT(nodes(NodeID::Part::strip)[0].frame.width, 400);

    dock.model.configuredIconSize.set(12);
    EXPECT_EQ(icons()[0].frame.width, 12);
}

// Behaviour: dock-strip-7
TEST_F(DockRootViewTest, ADemoCursorFreezesAMagnifiedStateUntilThePointerComes) {
    dock.setTiles(8, 0);
    dock.model.magnification.set(2);
    context.demoCursorFraction = 0.5;
    for (const auto& [position, thickness] :
         {std::pair{DockPosition::bottom, 128.0}, std::pair{DockPosition::left, 102.0}}) {
        show(position, 1000, thickness);
        // At rest the strip is 515 long, so the pointer is at its 257.5, between these two.
        EXPECT_NEAR(icons()[4].frame.width, 82.5935, 1e-3);
        EXPECT_NEAR(icons()[5].frame.width, 84.8656, 1e-3);
        send(Kind::exited);
        EXPECT_EQ(icons()[5].frame.width, 44);
    }
    context.demoCursorFraction = 0.25;
    show(DockPosition::bottom, 1000, 128);
    EXPECT_NEAR(icons()[0].frame.width, 84.8656, 1e-3);
}

TEST_F(DockRootViewTest, ADemoCursorDoesNothingWithoutMagnification) {
    dock.setTiles(8, 0);
    context.demoCursorFraction = 0.5;
    show();
    dock.model.magnification.set(2);

    EXPECT_EQ(icons()[4].frame.width, 44);
}

TEST_F(DockRootViewTest, ACollapsedDockShowsOnlyItsHandleAtTheEdge) {
    dock.setTiles(3, 0);
    for (const auto& [position, frame] : {std::pair{DockPosition::bottom, Rect{10, 80, 980, 4}},
                                          std::pair{DockPosition::left, Rect{0, 10, 4, 980}},
                                          std::pair{DockPosition::right, Rect{80, 10, 4, 980}}}) {
        ui.collapsed.set(true);
        show(position);
        ASSERT_EQ(view().makeScene().nodes.size(), 1U);
        EXPECT_EQ(view().makeScene().nodes[0].frame, frame);
        EXPECT_EQ(view().makeScene().nodes[0].opacity, 0.4);
    }
}

TEST_F(DockRootViewTest, ACollapsedDockIgnoresThePointerAndKeepsItsMagnification) {
    dock.setTiles(3, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);
    const Point overIcon = centerOfIcon(1);
    send(Kind::moved, overIcon);
    ui.collapsed.set(true);

    send(Kind::moved, {1, 127});
    tapAt(overIcon);
    send(Kind::exited);
    ui.collapsed.set(false);

    EXPECT_TRUE(dock.actionsTaken.empty());
    EXPECT_EQ(icons()[1].frame.width, 88);
}

TEST_F(DockRootViewTest, TheInputRegionGrowsOnEntryAndNotWithEveryMove) {
    dock.setTiles(3, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);
    const auto atRest = view().makeScene().inputRegion;
    send(Kind::moved, centerOfIcon(1));
    const auto entered = view().makeScene().inputRegion;
    send(Kind::moved, centerOfIcon(3));

    EXPECT_EQ(atRest->height, 58);
    EXPECT_EQ(entered, (Rect{0, 128 - 102, 1000, 102}));
    EXPECT_EQ(view().makeScene().inputRegion, entered);
}

TEST_F(DockRootViewTest, ThePointerIsTakenBeyondTheViewOnlyWhereTilesAreDrawn) {
    dock.setTiles(3, 0);
    dock.model.configuredIconSize.set(64);
    show(DockPosition::left, 1000, 58);
    const auto atRest = view().makeScene().inputRegion;
    EXPECT_EQ(atRest->minX(), 0);
    EXPECT_EQ(atRest->maxX(), 78);

    dock.model.magnification.set(1.2);
    show(DockPosition::left, 1000, 58 + 0.2 * 64);
    send(Kind::moved, centerOfIcon(1));
    EXPECT_DOUBLE_EQ(view().makeScene().inputRegion->maxX(), 7 + 1.2 * 64);

    // Moving the pointer out of the band resets the icons' size.
    dock.model.magnification.set(1.4);
    show(DockPosition::left, 1000, 58 + 0.4 * 64);
    send(Kind::moved, centerOfIcon(1));
    EXPECT_DOUBLE_EQ(view().makeScene().inputRegion->maxX(), 86);
}

TEST_F(DockRootViewTest, APointerThatMovesWithinATileChangesNothing) {
    dock.setTiles(3, 0);
    show();
    const Point overTile = centerOfIcon(1);
    send(Kind::moved, overTile);
    int invalidations = 0;
    view().onInvalidate = [&] { ++invalidations; };
    send(Kind::moved, {overTile.x + 15, overTile.y});

    EXPECT_EQ(invalidations, 0);
}

TEST_F(DockRootViewTest, ATileKeepsItsIdentityFromSceneToScene) {
    dock.setTiles(2, 0);
    show();
    const NodeID second = icons()[1].id;
    dock.model.items.set({test::tileItem("p1", true, true)});

    EXPECT_EQ(icons()[0].id, second);
}

TEST_F(DockRootViewTest, TilesWithOneIdentityStayTellableApart) {
    dock.model.items.set(
        {test::tileItem("twice", true, false), test::tileItem("twice", true, false)});
    show();

    EXPECT_NE(icons()[0].id, icons()[1].id);
}

TEST_F(DockRootViewTest, EqualTilesAskForNoNewScene) {
    dock.setTiles(2, 0);
    show();
    int invalidations = 0;
    view().onInvalidate = [&] { ++invalidations; };

    dock.setTiles(2, 0);
    EXPECT_EQ(invalidations, 0);
    dock.setTiles(2, 1);
    EXPECT_EQ(invalidations, 1);
}

TEST_F(DockRootViewTest, ALaunchingAppBobsAwayFromTheEdgeUntilItHasSettled) {
    dock.setTiles(1, 0);
    for (const auto& [position, bounce] : {std::pair{DockPosition::bottom, Point{0, -12}},
                                           std::pair{DockPosition::left, Point{12, 0}},
                                           std::pair{DockPosition::right, Point{-12, 0}}}) {
        dock.model.launching.set({"p0"});
        show(position);
        EXPECT_EQ(icons()[0].bounce, bounce);
        EXPECT_EQ(icons()[0].motion.bounce, (Curve{0.3, Easing::easeInOut, true}));
        dock.model.launching.set({});
        EXPECT_EQ(icons()[0].bounce, Point{});
        EXPECT_EQ(icons()[0].motion.bounce, (Curve{0.2, Easing::easeOut}));
    }
}

}
}
