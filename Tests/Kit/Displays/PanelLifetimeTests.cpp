/// Docks that are removed or changed while one of their own window's events is being handled, and
/// reconciliations that are requested from within one.
#include "Support/AppDelegateTest.hpp"

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

namespace vireline {
namespace {

using test::FakePanel;

class PanelLifetimeTest : public test::AppDelegateTest {
protected:
    PanelLifetimeTest() { start(); }

    /// Nothing is announced before half a second has passed.
    void unplugTheDocksDisplay() {
        platform.screens.list.pop_back();
        platform.screens.announceChange();
    }
    void moveTheDesktopsDockHere() {
        platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                                 test::screenWithDock(2, {1920, 0, 1920, 1080})};
        platform.screens.announceChange();
    }

    void dragIn(FakePanel& panel, std::initializer_list<AppRef> apps) {
        std::vector<std::string> urls;
        for (const AppRef& app : apps)
            urls.push_back(app.url.absoluteString());
        panel.listener().dragEntered(urls);
    }

    [[nodiscard]] Point tileCenter(std::size_t index) { return icons().at(index).frame.center(); }

    [[nodiscard]] std::vector<std::string> savedApps() const {
        const auto saved = SettingsCoding::decode(
            platform.fileSystem.read(preferences(), std::size_t{1} << 20U).value());
        std::vector<std::string> ids;
        for (const StoredApp& app : saved.value().manualApps)
            ids.push_back(app.bundleID);
        return ids;
    }

    /// The dock on display 2 is hidden at once and destroyed in the loop's next turn.
    void expectThePanelIsGone() {
        EXPECT_EQ(platform.panelWindows.find(2), nullptr);
        platform.runLoop.advance(0);
        EXPECT_FALSE(platform.panelWindows.made.front()->isAlive());
    }
};

TEST_F(PanelLifetimeTest, ADropAddsTheAppAlthoughTheDocksDisplayIsGone) {
    FakePanel& panel = dock();
    const Point place = tileCenter(0);
    dragIn(panel, {notes});
    unplugTheDocksDisplay();

    EXPECT_TRUE(panel.listener().dropped(place));

    EXPECT_EQ(savedApps(), (std::vector{finder.bundleID, mail.bundleID, notes.bundleID}));
    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, ADropOfSeveralAppsAddsThemAllAlthoughTheDocksDisplayIsGone) {
    const AppRef maps = platform.install("com.apple.Maps", "Maps");
    FakePanel& panel = dock();
    const Point place = tileCenter(0);
    dragIn(panel, {notes, maps});
    unplugTheDocksDisplay();

    EXPECT_TRUE(panel.listener().dropped(place));

    EXPECT_EQ(savedApps(),
              (std::vector{finder.bundleID, mail.bundleID, notes.bundleID, maps.bundleID}));
    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, ADropAddsTheAppAlthoughTheDesktopsDockHasComeToTheDisplay) {
    FakePanel& panel = dock();
    const Point place = tileCenter(0);
    dragIn(panel, {notes});
    moveTheDesktopsDockHere();

    EXPECT_TRUE(panel.listener().dropped(place));

    EXPECT_EQ(savedApps().back(), notes.bundleID);
    EXPECT_EQ(platform.panelWindows.displays(), std::vector<std::uint32_t>{1});
    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, ATileDroppedElsewhereMovesAlthoughTheDocksDisplayIsGone) {
    FakePanel& panel = dock();
    const Point from = tileCenter(0);
    const Point to = tileCenter(1);
    panel.listener().pointerEvent({PointerEvent::Kind::pressed, from});
    panel.listener().pointerEvent({PointerEvent::Kind::moved, {to.x + 2, to.y}});
    unplugTheDocksDisplay();

    panel.listener().pointerEvent({PointerEvent::Kind::released, {to.x + 2, to.y}});

    EXPECT_EQ(savedApps(), (std::vector{mail.bundleID, finder.bundleID}));
    EXPECT_FALSE(panel.watchesForCancel);
    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, ATileDroppedElsewhereMovesThroughThePlatformsTrackerToo) {
    FakePanel& panel = dock();
    const Point from = tileCenter(0);
    const Point to = tileCenter(1);
    panel.pointer().pressed(from);
    panel.pointer().moved({to.x + 2, to.y});
    unplugTheDocksDisplay();

    panel.pointer().released({to.x + 2, to.y}, true);

    EXPECT_EQ(savedApps(), (std::vector{mail.bundleID, finder.bundleID}));
    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, AClickMayBringTheListThatEndsItsOwnDock) {
    FakePanel& panel = dock();
    const Point place = tileCenter(1);
    panel.pointer().pressed(place);
    unplugTheDocksDisplay();
    platform.workspace.onOpenApplication = [this] {
        platform.running.launch(test::FakePlatform::instanceOf(notes));
    };

    panel.pointer().released(place, true);

    EXPECT_EQ(log.count("click launch com.apple.mail"), 1);
    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, WhatTheWindowOfADockThatIsGoneStillReportsIsIgnored) {
    FakePanel& panel = dock();
    const Point place = tileCenter(1);
    const auto tiles = panel.listener().accessibleTiles();
    dragIn(panel, {notes});
    unplugTheDocksDisplay();
    ASSERT_TRUE(panel.listener().dropped(place));
    ASSERT_TRUE(panel.isAlive());
    const std::size_t added = savedApps().size();
    const std::size_t moves = panel.frameChanges.size();
    log.clear();

    panel.pointer().pressed(place);
    panel.pointer().released(place, true);
    panel.pointer().secondaryPressed(place);
    dragIn(panel, {platform.install("com.apple.Maps", "Maps")});
    EXPECT_FALSE(panel.listener().dragMoved(place));
    EXPECT_FALSE(panel.listener().dropped(place));
    panel.listener().pressTile(tiles.at(1).id);
    panel.listener().showTileMenu(tiles.at(1).id);

    EXPECT_TRUE(panel.listener().accessibleTiles().empty());
    EXPECT_EQ(log.messages(), std::vector<std::string>{});
    EXPECT_EQ(savedApps().size(), added);
    EXPECT_TRUE(panel.menus.empty());
    EXPECT_EQ(panel.frameChanges.size(), moves);
}

TEST_F(PanelLifetimeTest, ADockThatIsRemovedDuringADragReleasesTheKeyboard) {
    FakePanel& panel = dock();
    const Point from = tileCenter(0);
    panel.pointer().pressed(from);
    panel.pointer().moved({from.x + 20, from.y});
    ASSERT_TRUE(panel.watchesForCancel);
    unplugTheDocksDisplay();

    platform.runLoop.advance(0.6);

    EXPECT_FALSE(panel.watchesForCancel);
    EXPECT_FALSE(panel.isAlive());
}

TEST_F(PanelLifetimeTest, TheProgramMayEndBeforeTheNextTurn) {
    FakePanel& panel = dock();
    const Point place = tileCenter(0);
    dragIn(panel, {notes});
    unplugTheDocksDisplay();
    panel.listener().dropped(place);

    quit();

    EXPECT_FALSE(panel.isAlive());
}

TEST_F(PanelLifetimeTest, ADisplayMayGoWhileItsPanelIsBeingMoved) {
    FakePanel& panel = dock();
    panel.onSetFrame = [&] {
        platform.screens.list.pop_back();
        platform.running.launch(test::FakePlatform::instanceOf(platform.install("b", "B")));
    };

    platform.running.launch(test::FakePlatform::instanceOf(notes));

    expectThePanelIsGone();
}

TEST_F(PanelLifetimeTest, EveryPanelHasTheLatestPlanWhenTheListChangesWhileOneIsMoved) {
    platform.screens.list.push_back(test::screenAt(3, {-1920, 0, 1920, 1080}));
    platform.screens.announceChange();
    platform.runLoop.advance(0.6);
    FakePanel& panel = dock();
    const AppRef other = platform.install("b", "B");
    panel.onSetFrame = [&] { platform.running.launch(test::FakePlatform::instanceOf(other)); };

    platform.running.launch(test::FakePlatform::instanceOf(notes));

    // Finder, Mail, Notes, B, Downloads and Trash, with two separators.
    EXPECT_EQ(platform.panelWindows.panel(2).frame.width, 322);
    EXPECT_EQ(platform.panelWindows.panel(3).frame.width, 322);
}

}
}
