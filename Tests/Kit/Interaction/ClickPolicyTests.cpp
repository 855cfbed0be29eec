#include "Interaction/ClickPolicy.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using ClickPolicy::decide;
using ClickPolicy::menuEntries;
using Entries = std::vector<MenuEntry>;

constexpr auto eitherWay = {false, true};

// Behaviour: click-policy-1
TEST(ClickPolicy, LaunchesAnAppThatIsNotRunningWhateverElseHolds) {
    for (const bool isFrontmost : eitherWay) {
        for (const bool hasWindowHere : eitherWay) {
            for (const bool summonEnabled : eitherWay) {
                EXPECT_EQ(decide({.isRunning = false,
                                  .isFrontmost = isFrontmost,
                                  .hasWindowHere = hasWindowHere},
                                 summonEnabled),
                          ClickAction::launch);
            }
        }
    }
}

// Behaviour: click-policy-2
TEST(ClickPolicy, SummonsEvenAFrontmostAppWithoutAWindowHere) {
    for (const bool isFrontmost : eitherWay) {
        EXPECT_EQ(
            decide({.isRunning = true, .isFrontmost = isFrontmost, .hasWindowHere = false}, true),
            ClickAction::summon);
    }
}

// Behaviour: click-policy-3
TEST(ClickPolicy, HidesAFrontmostAppWhereverItsWindowsAreWithSummoningOff) {
    for (const bool hasWindowHere : eitherWay) {
        EXPECT_EQ(
            decide({.isRunning = true, .isFrontmost = true, .hasWindowHere = hasWindowHere}, false),
            ClickAction::hide);
    }
}

TEST(ClickPolicy, ActivatesAnAppBehindOthersWithSummoningOff) {
    for (const bool hasWindowHere : eitherWay) {
        EXPECT_EQ(decide({.isRunning = true, .isFrontmost = false, .hasWindowHere = hasWindowHere},
                         false),
                  ClickAction::activate);
    }
}

TEST(ClickPolicy, HidesOrActivatesAnAppWithAWindowHereWithSummoningOn) {
    EXPECT_EQ(decide({.isRunning = true, .isFrontmost = true, .hasWindowHere = true}, true),
              ClickAction::hide);
    EXPECT_EQ(decide({.isRunning = true, .isFrontmost = false, .hasWindowHere = true}, true),
              ClickAction::activate);
}

// Behaviour: click-policy-7
TEST(ClickPolicy, EndsTheMenuOfARemovableAppThatIsNotRunningWithItsRemoval) {
    EXPECT_EQ(menuEntries(false, true),
              (Entries{MenuEntry::open, MenuEntry::showInFinder, MenuEntry::removeFromDock}));
}

TEST(ClickPolicy, OffersWhatFitsTheAppsState) {
    EXPECT_EQ(menuEntries(false, false), (Entries{MenuEntry::open, MenuEntry::showInFinder}));
    EXPECT_EQ(menuEntries(true, false),
              (Entries{MenuEntry::show, MenuEntry::showInFinder, MenuEntry::quit}));
    EXPECT_EQ(menuEntries(true, true), (Entries{MenuEntry::show, MenuEntry::showInFinder,
                                                MenuEntry::removeFromDock, MenuEntry::quit}));
}

TEST(ClickPolicy, TitlesTheMenuEntries) {
    EXPECT_EQ(title(MenuEntry::open, {}), "Open");
    EXPECT_EQ(title(MenuEntry::show, {}), "Show");
    EXPECT_EQ(title(MenuEntry::showInFinder, {}), "Show in Finder");
    EXPECT_EQ(title(MenuEntry::removeFromDock, {}), "Remove from Dock");
    EXPECT_EQ(title(MenuEntry::quit, {}), "Quit");
}

}
}
