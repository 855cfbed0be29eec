/// A user's interaction with docks under every window manager: clicks on them and next to them,
/// menus, collapsed docks, and the focus, which docks never take.
#include "ManagerStory.hpp"

namespace vireline::desktop {
namespace {

class Focus : public ManagerStory {
protected:
    /// Neither the keyboard focus nor the active window is a dock.
    [[nodiscard]] bool isElsewhere() {
        const auto& client = desktop().client();
        for (const auto& place : {middle, side}) {
            const auto window = dock(place).window;
            const auto focused = client.focusedWindow();
            const auto inside = client.children(focused);
            if (client.activeWindow() == window || focused == window ||
                std::ranges::find(inside, window) != inside.end())
                return false;
        }
        return true;
    }
};

TEST_F(Focus, IsNeverTaken) {
    run();
    const auto window = openLarge(alpha, middle.monitor);
    check(isElsewhere(), "the dock has the focus from the start");
    desktop().pointer().moveTo(middle.beta);
    check(stays([&] { return isElsewhere(); }), "the dock takes the focus under the pointer");
    const PixelPoint gap{(middle.alpha.x + middle.beta.x) / 2, middle.alpha.y};
    desktop().pointer().click(gap);
    check(stays([&] { return isElsewhere(); }), "a click gives the dock the focus");
    desktop().pointer().moveTo(middle.beta);
    desktop().pointer().press(Pointer::Button::primary);
    check(stays([&] { return isElsewhere(); }), "a press gives the dock the focus");
    desktop().pointer().moveTo(middle.monitor.center());
    desktop().pointer().release(Pointer::Button::primary);
    check(!hasManager() || comes([&] { return desktop().client().activeWindow() == window; }),
          "the window is not active any more");
}

class Passing : public ManagerStory {
protected:
    void openBehind() { openLarge(alpha, middle.monitor, {"--record", record().string()}); }
    [[nodiscard]] std::filesystem::path record() { return desktop().home().scratch() / "behind"; }
    [[nodiscard]] bool arrived(PixelPoint place) {
        const auto press =
            "press " + std::to_string(place.x) + ' ' + std::to_string(place.y) + '\n';
        return readFile(record()).contains(press);
    }
    void checkPasses(PixelPoint place, const std::string& where) {
        desktop().pointer().click(place);
        check(comes([&] { return arrived(place); }),
              "a click " + where + " does not reach the window below");
    }

    /// Between the top edges of the window and the strip, where tiles' labels are shown.
    const PixelPoint labelBand{middle.alpha.x, middle.frame.y + 6};
};

TEST_F(Passing, OfClicksInTheLabelBand) {
    run();
    openBehind();
    checkPasses(labelBand, "in the label band");
    desktop().pointer().moveTo(middle.alpha);
    static_cast<void>(stays([&] { return true; }));
    checkPasses({labelBand.x + 1, labelBand.y}, "in the label band after the pointer's visit");
}

TEST_F(Passing, OfClicksBesideAMagnifyingDock) {
    start(R"(, "magnificationEnabled": true, "magnification": 2)");
    demand(comes([&] { return dock(middle).frame.width > middle.frame.width + 40; }),
           "the dock has no room to grow");
    waitForKeeper();
    openBehind();
    const auto frame = dock(middle).frame;
    checkPasses({frame.x + 4, middle.alpha.y}, "beside the strip");
    checkPasses({frame.right() - 4, middle.alpha.y}, "beside the strip's other end");
}

TEST_F(Passing, NotOfClicksOnTheStrip) {
    run();
    openBehind();
    check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
          "the window covers the dock");
    const PixelPoint padding{middle.frame.x + 3, middle.alpha.y};
    desktop().pointer().click(padding);
    checkPasses(labelBand, "in the label band");
    check(!arrived(padding), "a click on the strip reaches the window below");
}

class Clicks : public ManagerStory {
protected:
    /// Whether this manager iconifies a window on request; then the dock can do that as well.
    [[nodiscard]] bool iconifies(const App& app) {
        constexpr std::uint32_t iconic = 3;
        const auto window = desktop().windowsOf(app).front();
        desktop().client().sendToRoot(window, "WM_CHANGE_STATE", {iconic});
        return comes([&] { return !isShown(app); });
    }
    void launch(PixelPoint tile, const App& app) {
        clickTile(tile, "click launch " + app.id);
        demand(comes([&] { return desktop().isActive(app); }), "the launched app is not active");
        waitForDot(middle, tile);
    }
};

TEST_F(Clicks, LaunchAndBringForward) {
    run();
    if (!hasManager())
        GTEST_SKIP() << "it keeps no list of windows";
    launch(middle.alpha, alpha);
    launch(middle.beta, beta);
    clickTile(middle.alpha, "click reopen " + alpha.id);
    check(comes([&] { return desktop().isActive(alpha); }),
          "a click does not bring the app forward");
}

TEST_F(Clicks, HideAndRestore) {
    run();
    if (!hasManager())
        GTEST_SKIP() << "it keeps no list of windows";
    open(beta, side.monitor);
    if (!iconifies(beta))
        GTEST_SKIP() << "it iconifies no windows";
    open(alpha, middle.monitor);
    waitForDot(middle, middle.alpha);
    clickTile(middle.alpha, "click hide " + alpha.id);
    check(comes([&] { return !isShown(alpha); }), "a click does not hide the app");
    clickTile(middle.alpha, "click reopen " + alpha.id);
    check(comes([&] { return isShown(alpha) && desktop().isActive(alpha); }),
          "a click does not restore the app");
}

class OtherDesktop : public ManagerStory {};

TEST_F(OtherDesktop, DoesNotPreventAClick) {
    run();
    if (!hasManager())
        GTEST_SKIP() << "it has one desktop only";
    open(alpha, middle.monitor);
    waitForDot(middle, middle.alpha);
    if (!leaveDesktopOf(alpha))
        GTEST_SKIP() << "it has one desktop only";
    desktop().pointer().click(middle.alpha);
    check(comes([&] { return isShown(alpha); }), "a click does not bring the app into view");
    check(comes([&] { return desktop().isActive(alpha); }), "the app does not become active");
    check(desktop().log().count("click hide") == 0, "the app is taken for the frontmost one");
}

class Menu : public ManagerStory {
protected:
    PixelRect openOn(PixelPoint tile) {
        const auto menu = openMenu(tile);
        demand(menu != PixelRect{}, "no menu opens");
        check(middle.monitor.contains(menu), "the menu is not inside of the monitor");
        // The menu is visible slightly before it has grabbed the keyboard and pointer.
        demand(comes([&] { return desktop().keyboard().isHeld(); }),
               "the menu does not take the keyboard");
        return menu;
    }
    [[nodiscard]] bool isClosed() { return desktop().docks().menus().empty(); }
};

TEST_F(Menu, TakesAClickInside) {
    run();
    constexpr int entries = 2;
    choose(openOn(middle.alpha), 0, entries);
    check(comes([&] { return isClosed(); }), "the menu stays open after a choice");
    check(comes([&] { return desktop().log().count("click launch " + alpha.id) == 1; }),
          "the choice does nothing");
}

TEST_F(Menu, ClosesWithEscape) {
    run();
    openOn(middle.alpha);
    desktop().keyboard().type(Keyboard::escape);
    check(comes([&] { return isClosed(); }), "Escape does not close the menu");
    clickTile(middle.beta, "click launch " + beta.id);
    check(desktop().log().count("click ") == 1, "the closed menu still does something");
}

TEST_F(Menu, ClosesWithAClickElsewhere) {
    run();
    open(alpha, side.monitor);
    openOn(middle.beta);
    desktop().pointer().click(side.monitor.center());
    check(comes([&] { return isClosed(); }), "a click elsewhere does not close the menu");
    check(desktop().log().count("click ") == 0, "the click elsewhere chooses something");
}

class AutoHide : public ManagerStory {
protected:
    void runHidden() {
        start(R"(, "autoHide": true)");
        demand(comes([&] { return isInPlace(middle, sliver); }),
               "the dock is not a line at the monitor's end: " + docksShown());
        waitForKeeper();
    }

    const PixelRect sliver{1973, 896, 215, 4};
    const PixelRect out{1973, 812, 215, 88};
    const PixelPoint edge{2080, 899};
};

TEST_F(AutoHide, ComesOutTakesAClickAndGoes) {
    runHidden();
    desktop().pointer().moveTo(edge);
    check(comes([&] { return isInPlace(middle, out); }),
          "a touch does not bring the dock out: " + docksShown());
    check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
          "the dock that comes out is not seen");
    clickTile(middle.alpha, "click launch " + alpha.id);
    desktop().pointer().moveTo(middle.monitor.center());
    check(comes([&] { return isInPlace(middle, sliver); }), "the dock does not hide again");
}

TEST_F(AutoHide, ComesOutOverAWindow) {
    runHidden();
    openLarge(beta, middle.monitor, {"--colour", "206040"});
    desktop().pointer().moveTo(edge);
    check(comes([&] { return isOnTop(middle, middle.alpha, alpha.colour); }),
          "a touch does not bring the dock out over a window");
    desktop().pointer().moveTo(middle.monitor.center());
    check(comes([&] { return isInPlace(middle, sliver); }), "the dock does not hide again");
}

}
}
