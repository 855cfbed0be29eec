#include "Applications/ClientWindows/AppGroups.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace vireline {
namespace {

using xdg::AppGroup;
using xdg::ClientWindow;
using xdg::OwnedWindow;
using xdg::WindowID;
namespace AppGroups = xdg::AppGroups;

ClientWindow ordinary(WindowID id) {
    ClientWindow window{};
    window.id = id;
    window.isOrdinary = true;
    return window;
}

ClientWindow helper(WindowID id) {
    ClientWindow window{};
    window.id = id;
    return window;
}

OwnedWindow of(const std::string& app, ClientWindow window) {
    xdg::IdentifiedApp identified;
    identified.bundleID = app;
    return {std::move(window), std::move(identified)};
}

std::vector<std::string> namesOf(const std::vector<AppGroup>& groups) {
    std::vector<std::string> names;
    names.reserve(groups.size());
    for (const auto& group : groups)
        names.push_back(group.app.bundleID);
    return names;
}

AppGroup groupOf(std::vector<ClientWindow> windows) {
    return {.app = {}, .windows = std::move(windows)};
}

TEST(AppGroups, StandInTheOrderOfTheirFirstOrdinaryWindows) {
    const std::vector<OwnedWindow> windows{
        of("c", helper(WindowID{1})), of("a", ordinary(WindowID{2})),
        of("b", ordinary(WindowID{3})), of("a", ordinary(WindowID{4})),
        of("c", ordinary(WindowID{5}))};

    const auto groups = AppGroups::group(windows);

    EXPECT_EQ(namesOf(groups), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(groups[0].windows.size(), 2U);
    EXPECT_EQ(groups[2].windows.front().id, WindowID{1});
}

TEST(AppGroups, AnAppWithoutAnOrdinaryWindowDoesNotRun) {
    EXPECT_TRUE(AppGroups::group(std::vector{of("tray", helper(WindowID{1}))}).empty());
}

TEST(AppGroups, AreEmptyWithoutWindows) {
    EXPECT_TRUE(AppGroups::group({}).empty());
}

TEST(AppGroups, TheMostRecentWindowIsTheOneThatWasActiveLast) {
    auto first = ordinary(WindowID{1});
    first.lastActive = 5;
    auto second = ordinary(WindowID{2});
    second.lastActive = 3;
    auto palette = helper(WindowID{3});
    palette.lastActive = 9;

    EXPECT_EQ(AppGroups::mostRecent(groupOf({palette, first, second})).id, WindowID{1});
}

TEST(AppGroups, OfWindowsThatWereNeverActiveTheNewestIsMostRecent) {
    EXPECT_EQ(AppGroups::mostRecent(groupOf({ordinary(WindowID{1}), ordinary(WindowID{2})})).id,
              WindowID{2});
}

TEST(AppGroups, APaletteMakesItsAppActiveToo) {
    const auto group = groupOf({ordinary(WindowID{1}), helper(WindowID{2})});

    EXPECT_TRUE(AppGroups::isActive(group, WindowID{2}, 0));
    EXPECT_FALSE(AppGroups::isActive(group, WindowID{3}, 0));
    EXPECT_FALSE(AppGroups::isActive(groupOf({ordinary(WindowID::none)}), WindowID::none, 0));
}

TEST(AppGroups, AWindowThatCannotBeSeenMakesNoAppActive) {
    auto elsewhere = ordinary(WindowID{1});
    elsewhere.desktop = 1;
    auto iconified = ordinary(WindowID{2});
    iconified.isHidden = true;
    const auto group = groupOf({elsewhere, iconified, ordinary(WindowID{3})});

    EXPECT_FALSE(AppGroups::isActive(group, WindowID{1}, 0));
    EXPECT_TRUE(AppGroups::isActive(group, WindowID{1}, 1));
    EXPECT_TRUE(AppGroups::isActive(group, WindowID{1}, std::nullopt))
        << "there is one desktop only";
    EXPECT_FALSE(AppGroups::isActive(group, WindowID{2}, 0));
    EXPECT_TRUE(AppGroups::isActive(group, WindowID{3}, 7)) << "it is on every desktop";
}

TEST(AppGroups, ComingAndGoingIsTheDifferenceOfTwoLists) {
    const auto before = AppGroups::group(
        std::vector{of("a", ordinary(WindowID{1})), of("b", ordinary(WindowID{2}))});
    const auto after = AppGroups::group(
        std::vector{of("b", ordinary(WindowID{2})), of("c", ordinary(WindowID{3}))});

    EXPECT_EQ(namesOf(AppGroups::without(before, after)), std::vector<std::string>{"a"});
    EXPECT_EQ(namesOf(AppGroups::without(after, before)), std::vector<std::string>{"c"});
}

}
}
