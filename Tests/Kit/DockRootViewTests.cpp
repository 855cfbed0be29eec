#include "Support/DockFixture.hpp"
#include "Views/DockRootView.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireline {
namespace {

using Kind = PointerEvent::Kind;

/// A dock on display 2, wide enough for its tiles at full size.
class DockRootViewTest : public testing::Test {
protected:
    void show(DockPosition position = DockPosition::bottom, double length = 1000,
              double thickness = 84) {
        const bool isBottom = position == DockPosition::bottom;
        const Size size = isBottom ? Size{length, thickness} : Size{thickness, length};
        const PanelSpec spec{2, {0, 4, size.width, size.height}, length, position};
        view_ = std::make_unique<DockRootView>(context, ui, spec, false);
        view_->onMenuRequest = [this](const Menu& menu, Point, MenuClosed onClose) {
            for (const MenuItem& entry : menu.entries) {
                menuTitles.push_back(std::get<MenuCommand>(entry).title);
            }
            closeMenu = std::move(onClose);
        };
    }

    [[nodiscard]] DockRootView& view() const { return *view_; }
    void send(Kind kind, Point p = {}) { view_->pointerEvent({kind, p}); }
    void tapAt(Point p) {
        send(Kind::pressed, p);
        send(Kind::released, p);
    }

    [[nodiscard]] std::vector<SceneNode> nodes(NodeID::Part part) const {
        std::vector<SceneNode> found;
        const Scene scene = view_->makeScene();
        std::ranges::copy_if(scene.nodes, std::back_inserter(found),
                             [=](const SceneNode& node) { return node.id.part == part; });
        return found;
    }
    [[nodiscard]] std::vector<SceneNode> icons() const { return nodes(NodeID::Part::icon); }
    [[nodiscard]] Point centerOfIcon(std::size_t index) const {
        return icons().at(index).frame.center();
    }
    [[nodiscard]] std::string labelText() const {
        const auto labels = nodes(NodeID::Part::label);
        return labels.empty() ? "" : std::get<LabelNode>(labels.front().content).text;
    }

    test::DockFixture dock;
    PanelUIState ui;
    DockViewContext context = dock.context();
    std::vector<std::string> menuTitles;
    MenuClosed closeMenu;

private:
    std::unique_ptr<DockRootView> view_;
};

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

TEST_F(DockRootViewTest, AClickGoesToTheActionsWithTheItemAndTheDisplay) {
    dock.setTiles(2, 0);
    show();

    tapAt(centerOfIcon(1));

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p1 #2"}));
}

// Behaviour: tiles-5
TEST_F(DockRootViewTest, TwoQuickTapsAreOneClickAndOneDoubleClick) {
    dock.setTiles(1, 0);
    show();

    tapAt(centerOfIcon(0));
    dock.platform.runLoop.advance(0.2);
    tapAt(centerOfIcon(0));

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p0 #2", "double-click p0 #2"}));
}

TEST_F(DockRootViewTest, TheDoubleClickIntervalIsReadAfreshOnEveryTap) {
    dock.setTiles(1, 0);
    show();

    tapAt(centerOfIcon(0));
    dock.platform.pointerSettings.interval = 0.1;
    dock.platform.runLoop.advance(0.2);
    tapAt(centerOfIcon(0));

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p0 #2", "click p0 #2"}));
}

TEST_F(DockRootViewTest, QuickTapsOnTwoTilesAreTwoClicks) {
    dock.setTiles(2, 0);
    show();

    tapAt(centerOfIcon(0));
    tapAt(centerOfIcon(1));

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p0 #2", "click p1 #2"}));
}

TEST_F(DockRootViewTest, ATapThatEndsElsewhereOrIsTakenAwayDoesNothing) {
    dock.setTiles(2, 0);
    show();

    send(Kind::pressed, centerOfIcon(0));
    send(Kind::released, centerOfIcon(1));
    send(Kind::pressed, centerOfIcon(0));
    send(Kind::cancelled);
    send(Kind::released, centerOfIcon(0));
    tapAt({1, 1});

    EXPECT_TRUE(dock.actionsTaken.empty());
}

TEST_F(DockRootViewTest, ADoubleClickSurvivesTheTileListChangingInBetween) {
    dock.setTiles(1, 0);
    show();

    tapAt(centerOfIcon(0));
    dock.setTiles(1, 1);
    tapAt(centerOfIcon(0));

    EXPECT_EQ(dock.actionsTaken.back(), "double-click p0 #2");
}

TEST_F(DockRootViewTest, AClickThatReplacesTheTilesIsHarmless) {
    dock.setTiles(2, 0);
    show();
    dock.actions.leftClick = [&](const DockItem& item, std::uint32_t) {
        dock.model.items.set({});
        EXPECT_EQ(item.id, "p1");
    };

    tapAt(centerOfIcon(1));

    EXPECT_EQ(icons().size(), 2U);
}

TEST_F(DockRootViewTest, ATappedTileShrinksForATenthOfASecond) {
    dock.setTiles(1, 0);
    show();

    tapAt(centerOfIcon(0));
    EXPECT_EQ(icons()[0].scale, 0.92);
    dock.platform.runLoop.advance(0.1);

    EXPECT_EQ(icons()[0].scale, 1);
}

TEST_F(DockRootViewTest, UtilityTilesOpenTheirFolders) {
    show();

    tapAt(centerOfIcon(0));
    tapAt(centerOfIcon(1));
    tapAt(centerOfIcon(1));

    EXPECT_EQ(dock.actionsTaken,
              (std::vector<std::string>{"open /home/me/Downloads", "open /home/me/Trash",
                                        "open /home/me/Trash"}));
}

// Behaviour: tiles-7
TEST_F(DockRootViewTest, WithoutADownloadsFolderOrATrashThereIsNoTileForIt) {
    dock.platform.userFolders.downloadsFolder.reset();
    dock.platform.userFolders.trashFolder.reset();
    dock.setTiles(1, 0);
    show();

    EXPECT_EQ(icons().size(), 1U);
}

// Behaviour: tiles-4
TEST_F(DockRootViewTest, OnlyAPinnedAppsMenuOffersToRemoveItAndOnlyInManualMode) {
    dock.setTiles(1, 1);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));
    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Open", "Show in Finder"}));
    menuTitles.clear();
    dock.manualMode = true;
    send(Kind::secondaryPressed, centerOfIcon(0));
    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Open", "Show in Finder", "Remove from Dock"}));
    menuTitles.clear();
    send(Kind::secondaryPressed, centerOfIcon(1));
    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Show", "Show in Finder", "Quit"}));
}

TEST_F(DockRootViewTest, TheChosenMenuEntryGoesToTheActions) {
    dock.setTiles(0, 1);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));
    dock.setTiles(0, 0);
    closeMenu(2);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"menu Quit u0 #2"}));
}

TEST_F(DockRootViewTest, UtilityTilesAndTheBareStripHaveNoMenu) {
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));
    send(Kind::secondaryPressed, {1, 1});

    EXPECT_FALSE(closeMenu);
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

    send(Kind::moved, centerOfIcon(0));

    EXPECT_EQ(icons()[0].frame.width, 88);
    EXPECT_EQ(icons()[4].frame.width, 44);
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

// Behaviour: dock-strip-4
TEST_F(DockRootViewTest, APointerBeyondTheLastTileHoldsThatTileInPlace) {
    dock.setTiles(3, 0);
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);
    const Rect glass = nodes(NodeID::Part::strip)[0].frame;

    send(Kind::moved, {glass.maxX() + 20, 120});

    EXPECT_GT(icons().back().frame.width, 44);
    EXPECT_LE(nodes(NodeID::Part::strip)[0].frame.maxX(), 1000);
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
    show(DockPosition::bottom, 1000, 128);
    const auto widest = [&] {
        return std::ranges::max(icons(), {}, [](const auto& n) { return n.frame.width; }).frame;
    };
    EXPECT_NEAR(widest().midX(), 500, 44);
    EXPECT_GT(widest().width, 80);

    send(Kind::exited);
    EXPECT_EQ(widest().width, 44);
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

/// Drags of tiles, on a dock of four pinned tiles and a running one.
class TileDragTest : public DockRootViewTest {
protected:
    void SetUp() override {
        dock.setTiles(4, 1);
        show();
        view().onReorderDrag = [this](bool isDragged) { dragStates.push_back(isDragged); };
    }
    void dragTile(std::size_t index, double dx, double dy = 0) {
        const Point p = centerOfIcon(index);
        send(Kind::pressed, p);
        send(Kind::moved, {p.x + dx, p.y + dy});
    }
    [[nodiscard]] SceneNode iconOf(std::uint32_t serial) const {
        const auto all = icons();
        return *std::ranges::find(all, NodeID{NodeID::Part::icon, serial}, &SceneNode::id);
    }

    std::vector<bool> dragStates;
};

TEST_F(TileDragTest, ATileComesOffAfterFourPoints) {
    dragTile(1, 3.9);
    EXPECT_TRUE(dragStates.empty());
    dragTile(1, 4);
    EXPECT_EQ(dragStates, std::vector{true});
}

TEST_F(TileDragTest, TheDraggedTileFollowsThePointerOnTopWithoutAnimation) {
    const auto serial = icons()[1].id.owner;
    dragTile(1, 30);

    const SceneNode dragged = iconOf(serial);
    EXPECT_EQ(dragged.slide, (Point{30, 0}));
    EXPECT_EQ(dragged.scale, 1.08);
    EXPECT_FALSE(dragged.motion.slide);
    EXPECT_EQ(icons().back().id.owner, serial);
}

TEST_F(TileDragTest, NeighboursMakeRoomWithAnAnimation) {
    const auto third = icons()[2].id.owner;
    dragTile(1, 30);

    EXPECT_EQ(iconOf(third).slide, (Point{-50, 0}));
    EXPECT_EQ(iconOf(third).motion.slide, (Curve{0.15, Easing::easeInOut}));
}

TEST_F(TileDragTest, LettingGoMovesTheAppAndIsNoClick) {
    dragTile(1, 110);
    send(Kind::released, {500, 50});

    EXPECT_EQ(dock.actionsTaken, std::vector<std::string>{"move p1 3"});
    EXPECT_EQ(dragStates, (std::vector{true, false}));
    EXPECT_EQ(icons()[1].slide, Point{});
    EXPECT_EQ(icons()[1].motion.slide, (Curve{0.15, Easing::easeInOut}));
}

TEST_F(TileDragTest, ATileLetGoWhereItWasSettlesAndMovesNothing) {
    dragTile(1, 20);
    send(Kind::released, {500, 50});

    EXPECT_TRUE(dock.actionsTaken.empty());
    EXPECT_EQ(icons()[1].motion.slide, (Curve{0.2, Easing::easeInOut}));
}

TEST_F(TileDragTest, ACancelledDragMovesNothing) {
    dragTile(1, 110);
    send(Kind::cancelled);
    send(Kind::released, {500, 50});

    EXPECT_TRUE(dock.actionsTaken.empty());
    EXPECT_EQ(dragStates, (std::vector{true, false}));
}

// Behaviour: tiles-3
TEST_F(TileDragTest, RunningAndUtilityTilesNeverComeOff) {
    for (const std::size_t index : {4U, 5U, 6U}) {
        dragTile(index, 110);
        send(Kind::cancelled);
    }

    EXPECT_TRUE(dragStates.empty());
    EXPECT_TRUE(dock.actionsTaken.empty());
}

TEST_F(TileDragTest, ADragEndsWhenItsTileLeavesTheList) {
    dragTile(3, 60);
    dock.setTiles(3, 1);
    static_cast<void>(view().makeScene());
    send(Kind::released, {500, 50});

    EXPECT_EQ(dragStates, (std::vector{true, false}));
    EXPECT_TRUE(dock.actionsTaken.empty());
}

TEST_F(TileDragTest, AMagnifiedStripKeepsStillWhileATileIsDragged) {
    dock.model.magnification.set(2);
    show(DockPosition::bottom, 1000, 128);
    send(Kind::moved, centerOfIcon(0));
    dragTile(0, 10);
    const Rect before = icons()[2].frame;
    dragTile(0, 60);

    EXPECT_EQ(icons()[2].frame, before);
}

TEST_F(TileDragTest, SideDocksReorderAlongTheirLength) {
    show(DockPosition::left, 1000, 58);
    dragTile(0, 3, 110);
    send(Kind::released, {20, 500});

    EXPECT_EQ(dock.actionsTaken, std::vector<std::string>{"move p0 2"});
}

class DropTest : public DockRootViewTest {
protected:
    void SetUp() override {
        dock.setTiles(1, 0);
        show();
    }
    [[nodiscard]] bool drop(const std::vector<std::string>& urls, Point at) {
        view().dragEntered(urls);
        return view().dropped(at);
    }
};

// Behaviour: tiles-6
TEST_F(DropTest, FilesDroppedOnTheTrashAreTrashedTogether) {
    EXPECT_TRUE(drop({"file:///a", "file:///b", "file:///c"}, centerOfIcon(2)));

    EXPECT_EQ(dock.actionsTaken, std::vector<std::string>{"trash 3"});
}

// Behaviour: tiles-6
TEST_F(DropTest, OnDownloadsAndEverywhereElseTheyAreOfferedAsApps) {
    EXPECT_TRUE(drop({"file:///a.app", "file:///b.app"}, centerOfIcon(1)));
    EXPECT_TRUE(drop({"file:///c.app"}, centerOfIcon(0)));

    EXPECT_EQ(dock.actionsTaken,
              (std::vector<std::string>{"add /a.app", "add /b.app", "add /c.app"}));
}

TEST_F(DropTest, RemoteURLsAreRefusedWhileStillDragged) {
    view().dragEntered({"https://example.org/a", "file://host/b", "nonsense"});

    EXPECT_FALSE(view().dragMoved(centerOfIcon(2)));
    EXPECT_FALSE(view().dropped(centerOfIcon(2)));
    EXPECT_TRUE(dock.actionsTaken.empty());
}

TEST_F(DropTest, NothingCanBeDroppedBesideTheStrip) {
    view().dragEntered({"file:///a"});

    EXPECT_FALSE(view().dragMoved({1, 60}));
    EXPECT_TRUE(view().dragMoved(centerOfIcon(0)));
}

TEST_F(DropTest, TheTrashGrowsWhileFilesAreOverIt) {
    view().dragEntered({"file:///a"});
    static_cast<void>(view().dragMoved(centerOfIcon(2)));
    EXPECT_EQ(icons()[2].scale, 1.1);
    EXPECT_EQ(icons()[2].motion.scale, (Curve{0.12, Easing::easeOut}));
    static_cast<void>(view().dragMoved(centerOfIcon(1)));
    EXPECT_EQ(icons()[2].scale, 1);
    static_cast<void>(view().dragMoved(centerOfIcon(2)));
    view().dragExited();
    EXPECT_EQ(icons()[2].scale, 1);
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
