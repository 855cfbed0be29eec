#include "Support/DockRootViewTest.hpp"

#include <algorithm>

namespace vireline {
namespace {

using test::DockRootViewTest;
using test::Kind;

/// Drags tiles on a dock with four pinned tiles and a running one.
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
    /// Drags the tile by this distance and releases it.
    void moveTile(std::size_t index, double dx, double dy = 0) {
        const Point p = centerOfIcon(index);
        dragTile(index, dx, dy);
        send(Kind::released, {p.x + dx, p.y + dy});
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
    moveTile(1, 110);

    EXPECT_EQ(dock.actionsTaken, std::vector<std::string>{"move p1 3"});
    EXPECT_EQ(dragStates, (std::vector{true, false}));
    EXPECT_EQ(icons()[1].slide, Point{});
    EXPECT_EQ(icons()[1].motion.slide, (Curve{0.15, Easing::easeInOut}));
}

TEST_F(TileDragTest, ATileReleasedWhereItWasSettlesAndMovesNothing) {
    moveTile(1, 20);

    EXPECT_TRUE(dock.actionsTaken.empty());
    EXPECT_EQ(icons()[1].motion.slide, (Curve{0.2, Easing::easeInOut}));
}

/// The final movement may not have been reported before the release.
TEST_F(TileDragTest, ATileLandsWhereTheButtonIsReleased) {
    const Point p = centerOfIcon(1);
    dragTile(1, 20);
    send(Kind::released, {p.x + 110, p.y});

    EXPECT_EQ(dock.actionsTaken, std::vector<std::string>{"move p1 3"});
}

TEST_F(TileDragTest, ACancelledDragMovesNothing) {
    dragTile(1, 110);
    send(Kind::cancelled);
    send(Kind::released, {500, 50});

    EXPECT_TRUE(dock.actionsTaken.empty());
    EXPECT_EQ(dragStates, (std::vector{true, false}));
}

TEST_F(TileDragTest, ADragEndsWithTheButtonThoughTheDockCollapsedMeanwhile) {
    for (const Kind end : {Kind::released, Kind::cancelled}) {
        dragTile(1, 110);
        ui.collapsed.set(true);
        send(end);
        ui.collapsed.set(false);

        EXPECT_TRUE(dock.actionsTaken.empty()) << "nothing was moved";
        EXPECT_EQ(dragStates, (std::vector{true, false}));
        dragStates.clear();
    }
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

TEST_F(TileDragTest, EveryTileHasItsPlaceThoughTheListChangesAgainWhileADragEnds) {
    dragTile(3, 60);
    view().onReorderDrag = [this](bool isDragged) {
        if (!isDragged)
            dock.setTiles(2, 0);
    };
    dock.setTiles(3, 1);

    EXPECT_EQ(view().accessibleTiles().size(), 4U);
}

TEST_F(TileDragTest, ADragEndsWhenItsTileIsNotPinnedAnyMore) {
    dragTile(3, -60);
    auto items = dock.model.items.get();
    items[3].isPinned = false;
    dock.model.items.set(items);
    static_cast<void>(view().makeScene());
    send(Kind::released, {500, 50});

    EXPECT_EQ(dragStates, (std::vector{true, false}));
    EXPECT_TRUE(dock.actionsTaken.empty());
}

TEST_F(TileDragTest, AnotherPressEndsADragWhoseReleaseNeverCame) {
    dragTile(1, 110);
    send(Kind::pressed, centerOfIcon(0));

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

/// The point of the release belongs to the view that the tile was dropped on.
TEST_F(TileDragTest, ThePointerMagnifiesWhereATileWasDroppedThoughTheMoveChangesTheDocksSize) {
    dock.model.magnification.set(2);
    show(DockPosition::right, 1000, 102);
    dock.actions.moveApp = [this](const std::string&, int) {
        view().update({2, {0, 0, 202, 1000}, 1000, DockPosition::right}, false);
    };
    const Point p = centerOfIcon(1);
    dragTile(1, 0, 110);
    ASSERT_EQ(icons()[3].frame.width, 44);
    send(Kind::released, {p.x, p.y + 110});

    EXPECT_GT(icons()[3].frame.width, 44);
}

TEST_F(TileDragTest, SideDocksReorderAlongTheirLength) {
    show(DockPosition::left, 1000, 58);
    moveTile(0, 3, 110);

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
    const SceneNode left = icons()[2];
    EXPECT_EQ(left.scale, 1);
    EXPECT_EQ(left.motion.scale, (Curve{0.12, Easing::easeOut}));
    static_cast<void>(view().dragMoved(centerOfIcon(2)));
    view().dragExited();
    EXPECT_EQ(icons()[2].scale, 1);
}

}
}
