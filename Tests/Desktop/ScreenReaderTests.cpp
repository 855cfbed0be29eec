/// Docks through a screen reader: assistive technology finds every tile, announces it, presses it
/// and opens its menu.
#include "DesktopTest.hpp"

#include <csignal>

namespace vireline::desktop {
namespace {

using Role = AccessibleRole;
using Words = std::vector<std::string>;

class ScreenReader : public DesktopTest {
protected:
    void run(Options options = {}) {
        options.accessibility = true;
        runWithTwoDisplays(apps, std::move(options));
        ASSERT_TRUE(docksSettle(tiles(2)));
        ASSERT_TRUE(findsTiles({"Alpha", "Beta", "Downloads", "Trash"}));
    }

    [[nodiscard]] testing::AssertionResult findsTiles(const Words& expected) {
        if (eventually([&] { return names() == expected; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "it finds " << testing::PrintToString(names());
    }

    /// The names of everything that can be pressed, in order.
    [[nodiscard]] Words names() { return desktop().controls().names(Role::pushButton); }

    [[nodiscard]] BusObject tile(const std::string& name) {
        return desktop().controls().find(Role::pushButton, name).value_or(BusObject{});
    }

    [[nodiscard]] std::string description(const std::string& name) {
        return desktop().controls().description(tile(name));
    }

    [[nodiscard]] bool isOpen(const App& app) { return !desktop().windowsOf(app).empty(); }

    const std::vector<App> apps = someApps(2);
};

TEST_F(ScreenReader, FindsTheDockAsAWindowWithItsTilesInTheirOrder) {
    run();
    const auto tree = desktop().controls();

    const auto dock = tree.find(Role::frame, "Vireline dock on right");
    ASSERT_TRUE(dock.has_value());
    EXPECT_EQ(tree.children(*dock).size(), 4U);
    EXPECT_TRUE(tree.is(*dock, AccessibleState::showing));
    for (const auto& tile : tree.children(*dock)) {
        EXPECT_EQ(tree.parent(tile), dock);
        EXPECT_TRUE(tree.is(tile, AccessibleState::showing)) << tree.name(tile);
        EXPECT_TRUE(tree.is(tile, AccessibleState::enabled)) << tree.name(tile);
    }
}

TEST_F(ScreenReader, TellsTheDocksOfSeveralDisplaysApart) {
    auto& desktop = make({.monitors = threeMonitors(), .accessibility = true});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.runVireline();
    const auto tree = desktop.controls();

    for (const char* name : {"Vireline dock on above", "Vireline dock on side"})
        EXPECT_TRUE(eventually([&] { return tree.find(Role::frame, name).has_value(); })) << name;
    EXPECT_FALSE(tree.find(Role::frame, "Vireline dock on main").has_value());
}

TEST_F(ScreenReader, KnowsWhereTheTilesAre) {
    run();
    const auto tree = desktop().controls();
    const auto planned = layout("right", tiles(2));

    for (int i = 0; i < 4; ++i) {
        const auto frame = tree.frame(tile(names().at(static_cast<std::size_t>(i))));
        EXPECT_TRUE(frame.contains(planned.icon(i))) << frame << planned.icon(i);
        EXPECT_NEAR(frame.center().x, planned.icon(i).x, 2);
    }
}

TEST_F(ScreenReader, StartsAnAppAndHearsThatItRuns) {
    run();
    const auto alpha = tile("Alpha");
    EXPECT_EQ(description("Alpha"), "not running");

    ASSERT_TRUE(desktop().controls().act(alpha, "Press"));

    EXPECT_TRUE(logs("click launch " + apps[0].id));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
    EXPECT_TRUE(eventually([&] { return description("Alpha") == "running"; }));
    EXPECT_EQ(tile("Alpha"), alpha) << "it is still the same tile";
    EXPECT_EQ(description("Beta"), "not running");
}

TEST_F(ScreenReader, OpensTheMenuOfATile) {
    run();

    ASSERT_TRUE(desktop().controls().act(tile("Beta"), "ShowMenu"));

    ASSERT_TRUE(eventually([&] { return desktop().docks().menus().size() == 1; }));
    choose(desktop().docks().menus().front(), 0, 2);
    EXPECT_TRUE(logs("click launch " + apps[1].id));
    EXPECT_TRUE(eventually([&] { return isOpen(apps[1]); }));
}

TEST_F(ScreenReader, FindsNeitherAValueNorAMenuAtAUtilityTile) {
    run();
    const auto tree = desktop().controls();

    for (const char* name : {"Downloads", "Trash"}) {
        EXPECT_EQ(tree.description(tile(name)), "") << name;
        EXPECT_EQ(tree.actions(tile(name)), Words{"Press"}) << name;
    }
    EXPECT_EQ(tree.actions(tile("Alpha")), (Words{"Press", "ShowMenu"}));
}

TEST_F(ScreenReader, FindsAnAppThatComesAndLosesOneThatGoes) {
    run();
    const App gamma = someApps(3)[2];
    desktop().home().install(gamma);

    auto& process = desktop().launch(gamma);
    ASSERT_TRUE(findsTiles({"Alpha", "Beta", gamma.name, "Downloads", "Trash"}));
    const auto gone = tile(gamma.name);
    process.signal(SIGTERM);

    EXPECT_TRUE(findsTiles({"Alpha", "Beta", "Downloads", "Trash"}));
    EXPECT_EQ(desktop().controls().name(gone), "");
}

TEST_F(ScreenReader, IsToldWhatChanges) {
    auto& desktop = make({.monitors = twoMonitors(), .accessibility = true});
    auto events = desktop.accessibleEvents();
    const App gamma = someApps(3)[2];
    for (const auto& app : someApps(3))
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.runVireline();
    ASSERT_TRUE(findsTiles({"Alpha", "Beta", "Downloads", "Trash"}));
    const auto dock = desktop.controls().find(Role::frame, "Vireline dock on right").value();
    const auto alpha = tile("Alpha");
    ASSERT_FALSE(events.has(alpha, "PropertyChange accessible-description"));

    desktop.launch(apps[0]);
    EXPECT_TRUE(
        eventually([&] { return events.has(alpha, "PropertyChange accessible-description"); }));

    auto& process = desktop.launch(gamma);
    EXPECT_TRUE(eventually([&] { return events.has(dock, "ChildrenChanged add"); }));
    ASSERT_FALSE(events.has(dock, "ChildrenChanged remove"));

    process.signal(SIGTERM);
    EXPECT_TRUE(eventually([&] { return events.has(dock, "ChildrenChanged remove"); }));
}

TEST_F(ScreenReader, FindsNoTilesOfAHiddenDock) {
    auto& desktop = make({.monitors = twoMonitors(), .accessibility = true});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.home().writePreferences(R"({"onboardingCompleted": true, "autoHide": true})");
    desktop.pointer().moveTo({100, 100});
    desktop.runVireline();
    const auto tree = desktop.controls();
    ASSERT_TRUE(
        eventually([&] { return tree.find(Role::frame, "Vireline dock on right").has_value(); }));
    EXPECT_EQ(names(), Words{});

    const auto edge = plannedDock("right", tiles(2)).frame;
    desktop.pointer().moveTo({edge.center().x, desktop.monitor("right").frame.bottom() - 1});
    EXPECT_TRUE(findsTiles({"Alpha", "Beta", "Downloads", "Trash"}));

    desktop.pointer().moveTo({100, 100});
    EXPECT_TRUE(findsTiles({}));
}

}
}
