/// Tiles bounce while their apps are starting.
#include "DesktopTest.hpp"
#include "Support/TemporaryFolder.hpp"

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

    /// An app that starts without showing its window, until it may.
    [[nodiscard]] App slowStarter() const {
        App slow = someApps(1)[0];
        slow.arguments = {"--wait-for", permission().string()};
        return slow;
    }
    void letItShowItsWindow() const { writeFile(permission(), ""); }
    [[nodiscard]] std::filesystem::path permission() const { return folder() / "permission"; }
    [[nodiscard]] std::filesystem::path folder() const { return folder_.path(); }

    void click() { desktop().pointer().click(layout("right", tiles(1)).icon(0)); }

    const Colour colour = someApps(1)[0].colour;

private:
    test::TemporaryFolder folder_;
};

TEST_F(LaunchBounce, LastsUntilASlowStarterShowsItsWindow) {
    const App slow = slowStarter();
    run(slow);
    EXPECT_FALSE(isUp());
    click();
    EXPECT_TRUE(bounces());
    letItShowItsWindow();
    ASSERT_TRUE(eventually([&] { return desktop().isActive(slow); }));
    EXPECT_TRUE(rests());
    EXPECT_TRUE(turns(layout("right", tiles(1)).icon(0), colour));
}

TEST_F(LaunchBounce, StartsNoSecondCopyForAnotherClick) {
    App slow = slowStarter();
    auto& desktop = make({.monitors = twoMonitors()});
    const auto record = desktop.home().scratch() / "starts";
    slow.arguments.insert(slow.arguments.end(), {"--record", record.string()});
    desktop.home().install(slow);
    desktop.home().pin(std::vector{slow});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));

    click();
    ASSERT_TRUE(eventually([&] { return readFile(record) == "started\n"; }));
    const auto start = std::chrono::steady_clock::now();
    // Later than the second click of any double click, and still without a window.
    ASSERT_TRUE(eventually([&] { return std::chrono::steady_clock::now() - start > 1500ms; }));
    click();
    ASSERT_TRUE(logs("click launch " + slow.id, 2));

    letItShowItsWindow();
    ASSERT_TRUE(eventually([&] { return desktop.isActive(slow); }));
    EXPECT_EQ(readFile(record), "started\n");
}

TEST_F(LaunchBounce, ShowsOnEveryDock) {
    run(slowStarter(), {.monitors = {{"left", {0, 0, 1920, 1080}},
                                     {"right", {1920, 0, 1280, 1024}},
                                     {"above", {0, 1080, 1280, 800}}}});
    click();
    EXPECT_TRUE(bounces("right"));
    EXPECT_TRUE(bounces("above"));
}

TEST_F(LaunchBounce, EndsWhenTheAppFailsBeforeItsWindow) {
    runCommand("sh -c \"while [ -d '" + folder().string() + "' ] && [ ! -e '" +
               permission().string() + "' ]; do sleep 0.1; done; exit 1\"");
    click();
    EXPECT_TRUE(bounces());
    letItShowItsWindow();
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
