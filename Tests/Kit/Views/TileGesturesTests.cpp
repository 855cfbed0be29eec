#include "Support/DockRootViewTest.hpp"

namespace vireline {
namespace {

using test::DockRootViewTest;
using test::Kind;

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

TEST_F(DockRootViewTest, TapsAreToldApartByWhenTheyHappenedNotByWhenTheyAreTold) {
    dock.setTiles(1, 0);
    show();
    const auto tapWhen = [this](double time) {
        send(Kind::pressed, centerOfIcon(0));
        view().pointerEvent({.kind = Kind::released, .position = centerOfIcon(0), .time = time});
    };

    tapWhen(10);
    // What the first tap did took a while.
    dock.platform.runLoop.advance(3);
    tapWhen(10.2);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"click p0 #2", "double-click p0 #2"}));
}

TEST_F(DockRootViewTest, TheDoubleClickIntervalIsReadAgainOnEveryTap) {
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

}
}
