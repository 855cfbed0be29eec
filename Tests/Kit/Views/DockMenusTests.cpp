#include "Support/DockRootViewTest.hpp"

namespace vireline {
namespace {

using test::DockRootViewTest;
using test::Kind;

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
    choose(2);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"menu Quit u0 #2"}));
}

TEST_F(DockRootViewTest, UtilityTilesAndWhatLiesBesideTheStripHaveNoMenu) {
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));
    send(Kind::secondaryPressed, {1, 1});

    EXPECT_TRUE(menuTitles.empty());
}

TEST_F(DockRootViewTest, TheMenuOfATileCallsTheFileManagerAsTheDesktopDoes) {
    dock.platform.words.fileManagerInTitle = "Folders";
    dock.setTiles(1, 0);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));

    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Open", "Show in Folders"}));
}

TEST_F(DockRootViewTest, TheMenuBesideTheTilesDoesNotQuitWhereAStatusItemDoes) {
    dock.setTiles(1, 1);
    show();
    const Rect strip = nodes(NodeID::Part::strip).front().frame;

    send(Kind::secondaryPressed, {strip.minX() + 2, strip.midY()});
    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Settings…"}));
    choose(0);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"settings"}));
}

TEST_F(DockRootViewTest, SeparatorsAndTheBareStripLeadToTheSettingsAndWithoutAStatusItemToTheEnd) {
    dock.platform.statusBar.hasPlace = false;
    dock.setTiles(1, 1);
    show();
    const Point separator = nodes(NodeID::Part::separator).front().frame.center();
    const Rect strip = nodes(NodeID::Part::strip).front().frame;

    send(Kind::secondaryPressed, separator);
    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Settings…", "Quit Vireline"}));
    choose(0);
    send(Kind::secondaryPressed, {strip.minX() + 2, strip.midY()});
    choose(1);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"settings", "quit"}));
}

// Behaviour: undo-3
TEST_F(DockRootViewTest, TheMenuBesideTheTilesBeginsWithWhatCanBeUndone) {
    dock.undoTitle = "Undo Move of Mail";
    dock.setTiles(1, 1);
    show();
    const Rect strip = nodes(NodeID::Part::strip).front().frame;

    send(Kind::secondaryPressed, {strip.minX() + 2, strip.midY()});
    EXPECT_EQ(menuTitles, (std::vector<std::string>{"Undo Move of Mail", "-", "Settings…"}));
    choose(0);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"undo"}));
}

// Behaviour: tile-windows-2
TEST_F(DockRootViewTest, AnAppsWindowsComeFirstTenOfThemAndTheOthersUnderMore) {
    for (int i = 0; i < 12; ++i)
        dock.windows.push_back({nullptr, "Window " + std::to_string(i), i == 0});
    dock.setTiles(0, 1);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));

    ASSERT_EQ(menu.entries.size(), 15U);
    EXPECT_EQ(std::get<MenuCommand>(menu.entries[0]), (MenuCommand{"Window 0", 0, true}));
    EXPECT_EQ(std::get<MenuCommand>(menu.entries[9]), MenuCommand{"Window 9"});
    const MenuSubmenu more{"More…", {MenuCommand{"Window 10"}, MenuCommand{"Window 11"}}};
    EXPECT_EQ(std::get<MenuSubmenu>(menu.entries[10]), more);
    EXPECT_TRUE(std::holds_alternative<MenuSeparator>(menu.entries[11]));
    EXPECT_EQ(std::get<MenuCommand>(menu.entries[12]), MenuCommand{"Show"});
    std::get<MenuSubmenu>(menu.entries[10]).entries[1].action();
    choose(3);
    EXPECT_EQ(dock.actionsTaken,
              (std::vector<std::string>{"window Window 11 of u0 #2", "window Window 3 of u0 #2"}));
}

TEST_F(DockRootViewTest, NoMoreThanAHundredWindowsAreListed) {
    dock.windows.resize(5000);
    dock.setTiles(0, 1);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));

    EXPECT_EQ(std::get<MenuSubmenu>(menu.entries.at(10)).entries.size(), 90U);
}

// Behaviour: tile-actions-1
TEST_F(DockRootViewTest, WhatAnAppOffersIsListedBetweenItsWindowsAndTheOtherEntries) {
    dock.windows.push_back({nullptr, "Inbox", false});
    dock.appActions = {{"new-window", "New Window", ""}, {"private", "New Private Window", ""}};
    dock.setTiles(0, 1);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));
    EXPECT_EQ(menuTitles,
              (std::vector<std::string>{"Inbox", "-", "New Window", "New Private Window", "-",
                                        "Show", "Show in Finder", "Quit"}));
    choose(3);

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"action private of u0"}));
}

TEST_F(DockRootViewTest, AnActionHasTheIconThatItsEntryNames) {
    dock.appActions = {{"compose", "Compose", "mail-new"}, {"plain", "Plain", ""}};
    dock.setTiles(1, 0);
    show();

    send(Kind::secondaryPressed, centerOfIcon(0));

    const ImageHandle icon = std::get<MenuCommand>(menu.entries.at(0)).image;
    const auto* const image = dynamic_cast<const test::FakeImage*>(icon.get());
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->source(), "mail-new");
    EXPECT_EQ(image->size(), (Size{16, 16}));
    EXPECT_EQ(std::get<MenuCommand>(menu.entries.at(1)).image, nullptr);
}

TEST_F(DockRootViewTest, AMiddleClickConcernsAppsOnly) {
    dock.setTiles(1, 0);
    show();

    send(Kind::middlePressed, centerOfIcon(0));
    send(Kind::middlePressed, centerOfIcon(1));
    send(Kind::middlePressed, {1, 1});

    EXPECT_EQ(dock.actionsTaken, (std::vector<std::string>{"middle-click p0 #2"}));
}

}
}
