/// Tiles bounce while their apps are starting.
#include "DesktopTest.hpp"

namespace vireline::desktop {
namespace {

using namespace std::chrono_literals;

class LaunchBounce : public DesktopTest {
protected:
    void run(const App& app, Options options = {}) {
        runWithTwoDisplays({app}, std::move(options));
        ASSERT_TRUE(docksSettle(tiles(1)));
        ASSERT_TRUE(turns(layout("right", tiles(1)).icon(0), app.colour));
    }

    /// As above, with an app that runs any command.
    void runCommand(const std::string& command) {
        const App app = someApps(1)[0];
        auto& desktop = make({.monitors = twoMonitors()});
        const auto entry = readFile(desktop.home().install(app));
        desktop.home().installEntry(app.id, entry.substr(0, entry.find("Exec=")) +
                                                "Exec=" + command + '\n');
        desktop.home().pin(std::vector{app});
        desktop.runVireline();
        ASSERT_TRUE(docksSettle(tiles(1)));
        ASSERT_TRUE(turns(layout("right", tiles(1)).icon(0), colour));
    }

    /// Whether the tile is currently well above its place.
    [[nodiscard]] bool isUp(const std::string& monitor = "right") {
        constexpr int halfIcon = 22;
        constexpr int well = 6;
        const auto icon = layout(monitor, tiles(1)).icon(0);
        return isSame(desktop().pixel({icon.x, icon.y - halfIcon - well}), colour);
    }
    [[nodiscard]] bool bounces(const std::string& monitor = "right") {
        return eventually([&] { return isUp(monitor); }) &&
               eventually([&] { return !isUp(monitor); }) &&
               eventually([&] { return isUp(monitor); });
    }
    /// Whether it has been at rest for longer than a whole bounce takes.
    [[nodiscard]] bool rests() {
        return eventually([&] { return !eventually([&] { return isUp(); }, 1s); }, 40s);
    }

    void click() { desktop().pointer().click(layout("right", tiles(1)).icon(0)); }

    const Colour colour = someApps(1)[0].colour;
};

TEST_F(LaunchBounce, LastsUntilASlowStarterShowsItsWindow) {
    App slow = someApps(1)[0];
    slow.arguments = {"--delay", "3000"};
    run(slow);
    EXPECT_FALSE(isUp());
    click();
    EXPECT_TRUE(bounces());
    EXPECT_TRUE(desktop().windowsOf(slow).empty()) << "it has started already";
    ASSERT_TRUE(eventually([&] { return desktop().isActive(slow); }));
    EXPECT_TRUE(rests());
    EXPECT_TRUE(turns(layout("right", tiles(1)).icon(0), colour));
}

TEST_F(LaunchBounce, StartsNoSecondCopyForAnotherClick) {
    App slow = someApps(1)[0];
    auto& desktop = make({.monitors = twoMonitors()});
    const auto record = desktop.home().scratch() / "starts";
    slow.arguments = {"--delay", "3000", "--record", record.string()};
    desktop.home().install(slow);
    desktop.home().pin(std::vector{slow});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));

    click();
    ASSERT_TRUE(eventually([&] { return readFile(record) == "started\n"; }));
    const auto start = std::chrono::steady_clock::now();
    // Later than the second click of any double click, and still without a window.
    ASSERT_TRUE(eventually([&] { return std::chrono::steady_clock::now() - start > 1500ms; }));
    ASSERT_TRUE(desktop.windowsOf(slow).empty()) << "it has started already";
    click();
    ASSERT_TRUE(logs("click launch " + slow.id, 2));

    ASSERT_TRUE(eventually([&] { return desktop.isActive(slow); }));
    EXPECT_EQ(readFile(record), "started\n");
}

TEST_F(LaunchBounce, ShowsOnEveryDock) {
    App slow = someApps(1)[0];
    slow.arguments = {"--delay", "3000"};
    run(slow, {.monitors = {{"left", {0, 0, 1920, 1080}},
                            {"right", {1920, 0, 1280, 1024}},
                            {"above", {0, 1080, 1280, 800}}}});
    click();
    EXPECT_TRUE(bounces("right"));
    EXPECT_TRUE(bounces("above"));
}

TEST_F(LaunchBounce, EndsWhenTheAppFailsBeforeItsWindow) {
    runCommand(R"(sh -c "sleep 2; exit 1")");
    click();
    EXPECT_TRUE(bounces());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(rests());
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << "only the timeout ended it";
}

TEST_F(LaunchBounce, EndsForAnAppThatNeverShowsAWindow) {
    runCommand("sleep 60");
    click();
    EXPECT_TRUE(bounces());
    EXPECT_TRUE(rests());
}

}
}
