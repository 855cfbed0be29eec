/// The position of docks under every window manager: their monitors, their stacking, and their
/// behaviour when things change around them.
#include "ManagerStory.hpp"

#include <array>
#include <optional>

namespace vireline::desktop {
namespace {

class Frames : public ManagerStory {};

TEST_F(Frames, AreOnTheMonitorsWithoutAPanel) {
    run();
    checkDocks();
    check(comes([&] {
              return isOnTop(middle, middle.alpha, alpha.colour) &&
                     isOnTop(middle, middle.beta, beta.colour);
          }),
          "the dock's tiles are not seen where its window is");
    check(comes([&] {
              return isOnTop(side, side.alpha, alpha.colour) &&
                     isOnTop(side, side.beta, beta.colour);
          }),
          "the other dock's tiles are not seen where its window is");
}

TEST_F(Frames, StayWhenWindowsOpen) {
    run();
    open(alpha, middle.monitor);
    open(beta, side.monitor);
    check(stays([&] { return isInPlace(middle) && isInPlace(side); }),
          "docks move when windows open: " + docksShown());
}

class Stacking : public ManagerStory {
protected:
    void checkAbove(xcb_window_t window) {
        demand(outer(window).contains(middle.frame.center()),
               "the test's own window does not reach below the dock");
        check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
              "the window covers the dock");
        check(stays([&] { return takesPointer(middle, middle.alpha); }),
              "the dock does not stay above the window");
    }
};

TEST_F(Stacking, IsAboveAWindowThatOpensLater) {
    run();
    checkAbove(openLarge(alpha, middle.monitor, {"--colour", "206040"}));
}

TEST_F(Stacking, IsAboveAWindowThatIsClicked) {
    run();
    const auto window = openLarge(alpha, middle.monitor, {"--colour", "206040"});
    desktop().pointer().click(middle.monitor.center());
    checkAbove(window);
}

TEST_F(Stacking, IsAboveAMaximisedWindow) {
    run();
    if (!supports("_NET_WM_STATE_MAXIMIZED_VERT"))
        GTEST_SKIP() << "it maximises no windows";
    const auto window = open(alpha, middle.monitor, {"--colour", "206040"});
    ask(window, "MAXIMIZED", true);
    demand(comes([&] { return outer(window).width > 1500; }), "the window is not maximised");
    checkAbove(window);
}

class Kinship : public ManagerStory {};

TEST_F(Kinship, IsInNoListAndOnEveryDesktop) {
    if (!hasManager())
        GTEST_SKIP() << "it keeps no list of windows";
    run();
    // A window manager may drop states that it does not support.
    for (const std::string state : {"SKIP_TASKBAR", "SKIP_PAGER"}) {
        if (!supports("_NET_WM_STATE_" + state))
            continue;
        for (const auto& place : {middle, side})
            check(comes([&] { return has(dock(place).window, state); }),
                  "the dock has no state " + state);
    }
    open(alpha, middle.monitor);
    if (!leaveDesktopOf(alpha))
        GTEST_SKIP() << "it has one desktop only";
    check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
          "the dock is not on the other desktop");
    checkDocks();
}

/// Drags with a key that moves windows, starting on a part of the strip without tiles.
class Drags : public ManagerStory, public testing::WithParamInterface<xcb_keysym_t> {};

TEST_P(Drags, LeaveTheDockWhereItIs) {
    run();
    const PixelPoint grip{middle.frame.x + 3, middle.alpha.y};
    desktop().pointer().moveTo(grip);
    desktop().keyboard().press(GetParam());
    desktop().pointer().press(Pointer::Button::primary);
    for (int step = 1; step <= 20; ++step)
        desktop().pointer().moveTo({grip.x - 10 * step, grip.y - 10 * step});
    check(stays([&] { return isInPlace(middle); }), "the dock is dragged away: " + docksShown());
    desktop().pointer().release(Pointer::Button::primary);
    desktop().keyboard().release(GetParam());
    checkDocks();
    const auto sides = desktop().client().items(dock(middle).window, "_NET_FRAME_EXTENTS");
    check(std::ranges::all_of(sides, [](auto side) { return side == 0; }),
          "the window manager puts a border around the dock");
}

INSTANTIATE_TEST_SUITE_P(With, Drags, testing::Values(Keyboard::alt, Keyboard::super),
                         [](const auto& key) {
                             return std::string{key.param == Keyboard::alt ? "Alt" : "Super"};
                         });

class FullScreen : public ManagerStory {
protected:
    /// Without a manager, a window makes itself full-screen by its size.
    [[nodiscard]] bool isPossible() {
        return !hasManager() || supports("_NET_WM_STATE_FULLSCREEN");
    }
    xcb_window_t openFilm() {
        const auto window = open(alpha, middle.monitor, {"--colour", "206040"});
        if (hasManager())
            ask(window, "FULLSCREEN", true);
        else
            place(window, middle.monitor);
        demand(comes([&] { return desktop().client().frame(window) == middle.monitor; }),
               "the test's own window does not become full-screen");
        return window;
    }
    void endFullScreen(xcb_window_t window) {
        if (hasManager())
            ask(window, "FULLSCREEN", false);
        else
            place(window, {middle.monitor.x, middle.monitor.y, 320, 200});
    }
    void close(xcb_window_t window) {
        if (hasManager())
            desktop().client().sendToRoot(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, 2});
        else
            xcb_kill_client(desktop().client().get(), window);
        demand(comes([&] { return !isShown(alpha); }), "the test's own window does not close");
    }
    void place(xcb_window_t window, const PixelRect& frame) {
        const std::array values{frame.x, frame.y, frame.width, frame.height};
        xcb_configure_window(desktop().client().get(), window,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             values.data());
        desktop().client().sync();
    }

    /// Whether the window alone is visible and clickable where the dock was.
    [[nodiscard]] bool covers(xcb_window_t window, Colour colour) {
        return !takesPointer(middle, middle.alpha) &&
               isSame(desktop().pixel(middle.alpha), colour) &&
               desktop().client().frame(window) == middle.monitor;
    }

    const Colour film{0x20, 0x60, 0x40};
};

TEST_F(FullScreen, CoversTheDockOfItsMonitorOnly) {
    run();
    if (!isPossible())
        GTEST_SKIP() << "it makes no window full-screen";
    const auto window = openFilm();
    check(comes([&] { return covers(window, film); }), "the dock covers a full-screen window");
    check(stays([&] { return covers(window, film); }), "the dock comes back over it");
    check(comes([&] { return isOnTop(side, side.alpha, alpha.colour); }),
          "the other monitor's dock goes as well");

    endFullScreen(window);
    check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
          "the dock does not come back when full screen ends");
    checkDocks();
}

TEST_F(FullScreen, LetsTheDockBackWhenTheWindowCloses) {
    run();
    if (!isPossible())
        GTEST_SKIP() << "it makes no window full-screen";
    const auto window = openFilm();
    check(comes([&] { return covers(window, film); }), "the dock covers a full-screen window");
    close(window);
    check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
          "the dock does not come back when the full-screen window closes");
}

class HotPlug : public ManagerStory {
protected:
    void checkClicks() {
        check(comes([&] { return isOnTop(side, side.alpha, alpha.colour); }),
              "the new dock is not seen");
        clickTile(side.alpha, "click launch " + alpha.id);
        check(comes([&] { return isShown(alpha); }), "the new dock launches nothing");
    }
};

TEST_F(HotPlug, TakesTheDockOfAMonitorAndGivesItBack) {
    run();
    desktop().setMonitors({monitors[0], monitors[1]});
    check(comes([&] { return isInPlace(middle) && desktop().docks().shown().size() == 1; }),
          "after an unplug: " + docksShown());
    desktop().setMonitors(monitors);
    checkDocks();
    checkClicks();
}

TEST_F(HotPlug, GivesAllDocksBackAfterASingleMonitor) {
    run();
    desktop().setMonitors({monitors[0]});
    check(comes([&] { return desktop().docks().shown().empty(); }),
          "with a single monitor: " + docksShown());
    desktop().setMonitors(monitors);
    checkDocks();
    checkClicks();
}

TEST_F(HotPlug, FollowsAMonitorThatTakesAnotherMode) {
    run();
    auto smaller = monitors;
    smaller[1].frame = {1280, 0, 1280, 720};
    desktop().setMonitors(smaller);
    const PixelRect inSmaller{1813, 632, 215, 84};
    check(comes([&] { return isInPlace(middle, inSmaller) && isInPlace(side); }),
          "after a change of mode: " + docksShown());
    desktop().setMonitors(monitors);
    checkDocks();
}

class Succession : public ManagerStory {
protected:
    void checkEverything(std::optional<WindowManager> manager,
                         const std::vector<DockWindow>& former) {
        waitForKeeper(manager, former);
        checkDocks();
        const auto window = openLarge(alpha, middle.monitor, {"--colour", "206040"});
        check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
              "a window covers the dock");
        desktop().client().sendToRoot(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, 2});
        demand(comes([&] { return !isShown(alpha); }), "the test's own window does not close");
        clickTile(side.beta, "click launch " + beta.id);
        demand(comes([&] { return desktop().isActive(beta); }), "the dock launches nothing");
        desktop().client().sendToRoot(desktop().windowsOf(beta).front(), "_NET_CLOSE_WINDOW",
                                      {XCB_CURRENT_TIME, 2});
        demand(comes([&] { return !isShown(beta); }), "the test's own window does not close");
    }

    [[nodiscard]] static WindowManager other() {
        return isManager(WindowManager::openbox) ? WindowManager::xfwm4 : WindowManager::openbox;
    }
};

TEST_F(Succession, OfTheSameManagerKeepsTheDocks) {
    if (!hasManager())
        GTEST_SKIP() << "there is none to restart";
    run();
    const auto former = desktop().docks().shown();
    desktop().stopWindowManager();
    desktop().startWindowManager();
    checkEverything(testedManager(), former);
}

TEST_F(Succession, OfAnotherManagerAndBackKeepsTheDocks) {
    run();
    auto former = desktop().docks().shown();
    desktop().replaceWindowManager(other());
    checkEverything(other(), former);
    if (const auto manager = testedManager()) {
        former = desktop().docks().shown();
        desktop().replaceWindowManager(*manager);
        checkEverything(manager, former);
    }
}

}
}
