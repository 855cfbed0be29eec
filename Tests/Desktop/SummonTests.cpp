/// Clicking a running app's tile brings its window to the clicked display.
#include "VirtualDesktop/Processes/ProcessFigures.hpp"
#include "WindowFeatureTest.hpp"

#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace vireline::desktop {
namespace {

constexpr const char* summonOnClick = R"("summonOnClick": true)";

class Summon : public UnderEachManager {
protected:
    /// A position well inside the monitor.
    [[nodiscard]] PixelPoint placeOn(const std::string& monitor) {
        const PixelRect display = desktop().monitor(monitor).frame;
        return {display.x + 100, display.y + 120};
    }

    [[nodiscard]] std::string summoned(const std::string& monitor, int index = 0) {
        return "click summon " + apps.at(static_cast<std::size_t>(index)).id + " on #" +
               std::to_string(desktop().displayIDOf(monitor));
    }

    /// Asks the window manager to remove these states from the window.
    void takeStates(xcb_window_t window, const std::string& first, const std::string& second) {
        constexpr std::uint32_t remove = 0;
        constexpr std::uint32_t fromPager = 2;
        const auto& client = desktop().client();
        client.sendToRoot(window, "_NET_WM_STATE",
                          {remove, client.atom("_NET_WM_STATE_" + first),
                           client.atom("_NET_WM_STATE_" + second), fromPager});
    }

    /// Clicks Alpha's tile there and waits for its window to arrive.
    void summonTo(const std::string& monitor) {
        clickTile(monitor);
        EXPECT_TRUE(comesToMiddle(windowOf(), monitor));
        EXPECT_TRUE(logs(summoned(monitor)));
    }
};

TEST_P(Summon, BringsAWindowFromThePrimaryDisplayAndBetweenTheOthers) {
    runWith(summonOnClick);
    open(0, placeOn("main"));

    summonTo("above");
    summonTo("side");
    summonTo("above");
    EXPECT_EQ(desktop().log().count("click hide"), 0);
    EXPECT_EQ(desktop().log().count("click reopen"), 0);
}

TEST_P(Summon, BringsAWindowToThePrimaryDisplayFromTheOthers) {
    runWith(summonOnClick, "side");
    open(0, placeOn("side"));

    summonTo("main");
    summonTo("above");
    summonTo("main");
}

TEST_P(Summon, BringsAWindowFromThePrimaryDisplayToTheOneAtItsSide) {
    runWith(summonOnClick);
    open(0, placeOn("main"));

    summonTo("side");
}

TEST_P(Summon, SummonsTheFrontmostAppInsteadOfHidingIt) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    ASSERT_EQ(desktop().activeWindow(), window);

    summonTo("side");

    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
    EXPECT_EQ(desktop().visibleWindowsOf(apps[0]).size(), 1U);
    EXPECT_EQ(desktop().log().count("click hide"), 0);
}

TEST_P(Summon, BringsAnAppBehindOthersToTheFrontAsWell) {
    runWith(summonOnClick);
    open(0, placeOn("main"));
    open(1, placeOn("main"));

    summonTo("side");

    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
}

TEST_P(Summon, HidesAnAppThatIsHereAlready) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("side"));
    const auto before = outerFrame(window);

    clickTile("side");
    EXPECT_TRUE(logs("click hide " + apps[0].id));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).empty(); }));
    clickTile("side");

    EXPECT_TRUE(logs("click reopen " + apps[0].id));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).size() == 1; }));
    EXPECT_TRUE(comesTo(window, before));
}

TEST_P(Summon, LeavesWindowsWhereTheyAreWhileItIsOff) {
    runWith(R"("openOnThisDisplay": true, "fillOnDoubleClick": true)");
    open(0, placeOn("main"));

    clickTile("side");

    EXPECT_TRUE(logs("click hide " + apps[0].id));
    EXPECT_EQ(desktop().log().count("summon"), 0);
}

TEST_P(Summon, MovesTheWindowThatWasActiveLastAndNoOther) {
    runWith(summonOnClick);
    const PixelRect main = desktop().monitor("main").frame;
    open(0, {main.x + 100, main.y + 120}, {"--windows", "3"});
    ASSERT_TRUE(eventually([&] {
        const auto windows = desktop().visibleWindowsOf(apps[0]);
        return windows.size() == 3 && desktop().activeWindow() == windows.back();
    }));
    const auto windows = desktop().windowsOf(apps[0]);
    const auto before = outerFrame(windows[0]);

    clickTile("side");

    EXPECT_TRUE(comesToMiddle(windows[2], "side"));
    EXPECT_EQ(outerFrame(windows[0]), before);
    EXPECT_EQ(outerFrame(windows[1]).width, before.width);
    EXPECT_TRUE(main.contains(outerFrame(windows[1]).center()));
}

TEST_P(Summon, BringsTheWindowThatIsChosenInTheMenu) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    const auto menu = openMenu(tile("side"));
    ASSERT_NE(menu, PixelRect{});
    // The window, a separator, "Show", "Show in" and "Quit".
    choose(menu, 0, 5);
    EXPECT_TRUE(comesToMiddle(window, "side"));
    EXPECT_TRUE(logs("menu window " + apps[0].id));
}

TEST_P(Summon, KeepsAMaximisedWindowMaximised) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    const auto before = outerFrame(window);
    setStates(window, "MAXIMIZED_HORZ", "MAXIMIZED_VERT");
    ASSERT_TRUE(eventually([&] { return outerFrame(window).width > 1000; }));

    clickTile("side");

    EXPECT_TRUE(logs(summoned("side")));
    const PixelRect side = desktop().monitor("side").frame;
    EXPECT_TRUE(eventually([&] {
        const PixelRect outer = outerFrame(window);
        return hasState(window, "MAXIMIZED_HORZ") && hasState(window, "MAXIMIZED_VERT") &&
               side.contains(outer.center()) && outer.width == side.width;
    })) << outerFrame(window);
    // After the states are removed, it stays on that display.
    takeStates(window, "MAXIMIZED_HORZ", "MAXIMIZED_VERT");
    EXPECT_TRUE(eventually([&] {
        const PixelRect outer = outerFrame(window);
        return outer.width == before.width && outer.height == before.height &&
               side.contains(outer.center());
    })) << outerFrame(window);
}

TEST_P(Summon, KeepsAWindowMaximisedInOneDirection) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    setStates(window, "MAXIMIZED_VERT");

    clickTile("side");

    EXPECT_TRUE(comesOnto(window, "side"));
    EXPECT_TRUE(eventually([&] { return hasState(window, "MAXIMIZED_VERT"); }));
    EXPECT_FALSE(hasState(window, "MAXIMIZED_HORZ"));
}

TEST_P(Summon, KeepsAFullScreenWindowFullScreen) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    setStates(window, "FULLSCREEN");
    ASSERT_TRUE(eventually([&] { return outerFrame(window) == desktop().monitor("main").frame; }));

    clickTile("above");

    EXPECT_TRUE(logs(summoned("above")));
    EXPECT_TRUE(comesTo(window, desktop().monitor("above").frame));
    EXPECT_TRUE(eventually([&] { return hasState(window, "FULLSCREEN"); }));
}

TEST_P(Summon, RestoresAMinimisedWindow) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    constexpr std::uint32_t iconic = 3;
    desktop().client().sendToRoot(window, "WM_CHANGE_STATE", {iconic});
    ASSERT_TRUE(eventually([&] { return hasState(window, "HIDDEN"); }));

    summonTo("above");

    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).size() == 1; }));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
}

TEST_P(Summon, FetchesAWindowFromAnotherDesktop) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    constexpr std::uint32_t fromPager = 2;
    desktop().client().sendToRoot(window, "_NET_WM_DESKTOP", {1, fromPager});
    ASSERT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).empty(); }));

    summonTo("side");

    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).size() == 1; }));
    EXPECT_EQ(desktop().client().items(desktop().client().root(), "_NET_CURRENT_DESKTOP"),
              std::vector<std::uint32_t>{0});
}

TEST_P(Summon, CentresWhatAWindowShowsWithoutItsShadow) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"));
    desktop().client().setItems(window, "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, {20, 20, 10, 40});
    desktop().client().sync();

    clickTile("side");

    EXPECT_TRUE(comesToMiddle(window, "side"));
}

TEST_P(Summon, CentresAWindowThatIsLargerThanTheDisplay) {
    runWith(summonOnClick);
    const auto window = open(0, placeOn("main"), {"--size", "1400x880"});

    clickTile("side");

    EXPECT_TRUE(comesOnto(window, "side"));
    ASSERT_TRUE(logs(summoned("side")));
    // From then on the window counts as being on this display.
    clickTile("side");
    EXPECT_TRUE(logs("click hide " + apps[0].id));
}

TEST_P(Summon, CentresOnADisplayOfAnotherScale) {
    Options options;
    options.scales = {{"main", 1}, {"above", 1.5}, {"side", 2}};
    runWith(summonOnClick, {}, options);
    open(0, placeOn("main"));

    clickTile("above");
    EXPECT_TRUE(comesToMiddle(windowOf(), "above"));
    clickTile("side");
    EXPECT_TRUE(comesToMiddle(windowOf(), "side"));
}

TEST_P(Summon, AnswersAtOnceForAProgramThatHangs) {
    constexpr UndisturbedTime::Milliseconds limit{100};
    runWith(summonOnClick);
    const PixelPoint place = placeOn("main");
    auto& hanging = desktop().launch(
        apps[0], {"--at", std::to_string(place.x) + "," + std::to_string(place.y)});
    ASSERT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
    ASSERT_TRUE(dotShows(layout("side", request).dot(0), /*shows=*/true));
    hanging.signal(SIGSTOP);

    std::vector<UndisturbedTime::Milliseconds> answers;
    for (int round = 1; round <= 4; ++round) {
        for (const auto* monitor : {"side", "above"}) {
            const UndisturbedTime time{{desktop().vireline().pid(), desktop().server(), getpid()}};
            clickTile(monitor);
            ASSERT_TRUE(logs(summoned(monitor), round));
            answers.push_back(time.elapsed());
            ASSERT_TRUE(comesToMiddle(windowOf(), monitor));
        }
    }
    hanging.signal(SIGCONT);

    std::ranges::sort(answers);
    EXPECT_LT(answers[answers.size() / 2], limit);
}

TEST_P(Summon, IsSaidOnceToBeImpossibleUnderAWindowManagerThatMovesNoWindows) {
    constexpr const char* line = "window manager cannot move windows";
    runWith(summonOnClick);
    const auto& client = desktop().client();
    const auto becomeOneThatMovesNone = [&] {
        auto supported = client.items(client.root(), "_NET_SUPPORTED");
        std::erase(supported, client.atom("_NET_MOVERESIZE_WINDOW"));
        client.setItems(client.root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, supported);
        client.setItems(client.root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW,
                        client.items(client.root(), "_NET_SUPPORTING_WM_CHECK"));
        client.sync();
    };
    desktop().stopVireline();
    becomeOneThatMovesNone();

    desktop().runVireline();
    EXPECT_TRUE(logs(line));

    desktop().stopWindowManager();
    desktop().startWindowManager();
    open(0, placeOn("main"));
    summonTo("side");
    EXPECT_EQ(desktop().log().count(line), 1);

    becomeOneThatMovesNone();
    EXPECT_TRUE(logs(line, 2));
    EXPECT_EQ(desktop().log().count(line), 2);
}

TEST_P(Summon, FallsBackToHidingWithoutAWindowManager) {
    runWith(summonOnClick);
    open(0, placeOn("main"));
    summonTo("side");

    desktop().stopWindowManager();
    clickTile("above");

    EXPECT_TRUE(eventually([&] {
        return desktop().log().count("click reopen") + desktop().log().count("click hide") == 1;
    }));
    EXPECT_EQ(desktop().log().count("click summon"), 1);
}

INSTANTIATE_TEST_SUITE_P(Under, Summon, eachManager(), managerName);

}
}
