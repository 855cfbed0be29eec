/// Apps launched from a dock open on its display, wherever they would otherwise go.
#include "WindowFeatureTest.hpp"

#include <chrono>

namespace vireline::desktop {
namespace {

constexpr const char* openHere = R"("openOnThisDisplay": true)";

class OpenHere : public UnderEachManager {
protected:
    /// Sets the arguments of the app at `index`; must be called before the program runs.
    void setArguments(std::size_t index, const std::vector<std::string>& arguments) {
        App changed = apps.at(index);
        desktop().placeWindowsOf(changed, arguments);
        changed.arguments = arguments;
        desktop().home().install(changed);
    }
    /// An app's argument that requests a position on that display.
    [[nodiscard]] std::string cornerOn(const std::string& monitor) {
        const PixelRect display = desktop().monitor(monitor).frame;
        return std::to_string(display.x + 40) + "," + std::to_string(display.y + 60);
    }
};

TEST_P(OpenHere, MovesALaunchedAppToTheMiddleOfTheClickedDisplay) {
    runWith(openHere);
    setArguments(0, {"--at", cornerOn("main")});
    setArguments(1, {"--at", cornerOn("above")});

    clickTile("above", 0);
    EXPECT_TRUE(comesToMiddle(windowOf(0), "above"));
    clickTile("side", 1);
    EXPECT_TRUE(comesToMiddle(windowOf(1), "side"));

    EXPECT_TRUE(logs("placement done for " + apps[0].id));
    EXPECT_TRUE(logs("placement done for " + apps[1].id));
}

TEST_P(OpenHere, MovesAnAppToThePrimaryDisplayToo) {
    runWith(openHere, "side");
    setArguments(0, {"--at", cornerOn("side")});

    clickTile("main", 0);

    EXPECT_TRUE(comesToMiddle(windowOf(0), "main"));
}

TEST_P(OpenHere, LeavesAppsWhereTheyOpenWhileItIsOff) {
    runWith(R"("summonOnClick": true, "fillOnDoubleClick": true)");
    setArguments(0, {"--at", cornerOn("main")});

    clickTile("side", 0);
    ASSERT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
    ASSERT_TRUE(dotShows(layout("side", request).dot(0), /*shows=*/true));

    EXPECT_TRUE(comesOnto(windowOf(0), "main"));
    EXPECT_EQ(desktop().log().count("placement"), 0);
}

TEST_P(OpenHere, WaitsForAWindowThatComesLate) {
    runWith(openHere);
    setArguments(0, {"--delay", "1500", "--at", cornerOn("main")});

    clickTile("side", 0);

    EXPECT_TRUE(logs("placement armed for " + apps[0].id + " on #"));
    EXPECT_TRUE(comesToMiddle(windowOf(0), "side"));
}

TEST_P(OpenHere, KeepsTwoLaunchesApart) {
    runWith(openHere);
    setArguments(0, {"--delay", "900", "--at", cornerOn("main")});
    setArguments(1, {"--delay", "600", "--at", cornerOn("main")});

    clickTile("side", 0);
    clickTile("above", 1);

    EXPECT_TRUE(comesToMiddle(windowOf(0), "side"));
    EXPECT_TRUE(comesToMiddle(windowOf(1), "above"));
}

TEST_P(OpenHere, FetchesAWindowFromAnotherDesktop) {
    runWith(openHere);
    setArguments(0, {"--desktop", "1", "--at", cornerOn("main")});

    clickTile("side", 0);

    EXPECT_TRUE(comesToMiddle(windowOf(0), "side"));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).size() == 1; }));
}

TEST_P(OpenHere, MovesAWindowOfAnUnknownProcess) {
    runWith(openHere);
    setArguments(0,
                 {"--property", "WM_CLIENT_MACHINE=elsewhere.example", "--at", cornerOn("main")});

    clickTile("above", 0);

    EXPECT_TRUE(comesToMiddle(windowOf(0), "above"));
    EXPECT_TRUE(logs("summon pid 0 to display #"));
}

TEST_P(OpenHere, BringsBackAWindowThatMovesItselfAwayAtOnce) {
    runWith(openHere);
    const auto record = desktop().home().scratch() / "moves";
    setArguments(0, {"--later", "100:" + cornerOn("main"), "--record", record.string(), "--at",
                     cornerOn("main")});

    clickTile("side", 0);
    ASSERT_TRUE(comesToMiddle(windowOf(0), "side"));
    ASSERT_TRUE(eventually([&] { return readFile(record).contains("moved by itself"); }));

    // It moves away and is brought back, or that has already happened.
    EXPECT_TRUE(comesToMiddle(windowOf(0), "side"));
    clickTile("side", 1);
    EXPECT_TRUE(logs("click launch " + apps[1].id));
    EXPECT_TRUE(comesToMiddle(windowOf(0), "side"));
}

TEST_P(OpenHere, LeavesAWindowToTheUserOnceItHasRested) {
    runWith(openHere);
    setArguments(0, {"--at", cornerOn("main")});
    clickTile("side", 0);
    const auto window = windowOf(0);
    ASSERT_TRUE(comesToMiddle(window, "side"));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(eventually(
        [&] { return std::chrono::steady_clock::now() - start > std::chrono::seconds{1}; }));

    // Moved without a button held, like by a pager, a shortcut or the window menu.
    const PixelRect above = desktop().monitor("above").frame;
    desktop().moveWindow(window, {above.x + 300, above.y + 200});
    ASSERT_TRUE(comesOnto(window, "above"));
    // A click on the other tile is handled after the events about the window.
    desktop().client().sync();
    clickTile("side", 1);
    ASSERT_TRUE(logs("placement done for " + apps[1].id));

    EXPECT_TRUE(above.contains(outerFrame(window).center())) << outerFrame(window);
}

TEST_P(OpenHere, LeavesAWindowToTheUsersHand) {
    runWith(openHere);
    setArguments(0, {"--at", cornerOn("main")});
    clickTile("side", 0);
    const auto window = windowOf(0);
    ASSERT_TRUE(comesToMiddle(window, "side"));

    // Moved with the button held, as when the user drags it.
    const PixelRect above = desktop().monitor("above").frame;
    desktop().pointer().moveTo(outerFrame(window).center());
    desktop().pointer().press(Pointer::Button::primary);
    desktop().moveWindow(window, {above.x + 300, above.y + 200});
    ASSERT_TRUE(comesOnto(window, "above"));
    // The button is held for longer than the program's polling interval.
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(eventually(
        [&] { return std::chrono::steady_clock::now() - start > std::chrono::milliseconds{500}; }));
    desktop().pointer().release(Pointer::Button::primary);
    clickTile("side", 1);
    ASSERT_TRUE(logs("click launch " + apps[1].id));
    ASSERT_TRUE(logs("placement done for " + apps[1].id));

    EXPECT_TRUE(above.contains(outerFrame(window).center())) << outerFrame(window);
}

TEST_P(OpenHere, GivesUpOnAnAppThatNeverShowsAWindow) {
    runWith(openHere);
    setArguments(0, {"--delay", "60000"});

    clickTile("side", 0);

    EXPECT_TRUE(logs("placement armed for " + apps[0].id + " on #"));
    EXPECT_TRUE(logs("placement gave up on " + apps[0].id));
    EXPECT_EQ(desktop().log().count("placement gave up on "), 1);
}

TEST_P(OpenHere, LaunchesAllTheSameWithoutAWindowManager) {
    Options options;
    options.windowManager = false;
    runWith(openHere, {}, options);

    clickTile("side", 0);

    EXPECT_TRUE(logs("click launch " + apps[0].id));
    EXPECT_EQ(desktop().log().count("placement"), 0);
}

TEST_P(OpenHere, GivesUpQuietlyWhenTheWindowManagerGoes) {
    runWith(openHere);
    setArguments(0, {"--delay", "1500", "--at", cornerOn("main")});

    clickTile("side", 0);
    ASSERT_TRUE(logs("placement armed for " + apps[0].id + " on #"));
    desktop().stopWindowManager();

    EXPECT_TRUE(logs("placement gave up on " + apps[0].id));
    EXPECT_EQ(desktop().log().count("summon pid"), 0);
    EXPECT_TRUE(desktop().vireline().isRunning());
}

INSTANTIATE_TEST_SUITE_P(Under, OpenHere, eachManager(), managerName);

}
}
