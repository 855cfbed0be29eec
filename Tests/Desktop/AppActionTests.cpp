/// What apps offer in the menus of their tiles, and the middle button.
#include "DesktopTest.hpp"
#include "VirtualDesktop/Screen/Picture.hpp"

namespace vireline::desktop {
namespace {

class AppActions : public DesktopTest {
protected:
    /// Runs the program with Alpha, whose entry has these actions.
    void runWithActions(const std::vector<std::string>& ids) {
        auto& desktop = make({.monitors = twoMonitors()});
        const auto icon = desktop.home().scratch() / "action.png";
        Picture{iconSide, iconSide, iconColour}.writePNG(icon);
        std::string list;
        std::vector<std::string> groups;
        for (const auto& id : ids) {
            list += id + ";";
            groups.push_back("[Desktop Action " + id + "]\nName=Action " + id + "\nIcon=" +
                             icon.string() + "\nExec=" + testedPrograms().testApp.string() +
                             " --class " + alpha.id + " --title " + id);
        }
        alpha.keys.push_back("Actions=" + list);
        alpha.keys.insert(alpha.keys.end(), groups.begin(), groups.end());
        desktop.home().install(alpha);
        desktop.home().pin(std::vector{alpha});
        desktop.runVireline();
        ASSERT_TRUE(docksSettle(tiles(1)));
    }

    void launchAlpha() {
        desktop().launch(alpha);
        ASSERT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
    }

    [[nodiscard]] PixelPoint alphaTile() { return layout("right", tiles(1)).icon(0); }
    [[nodiscard]] bool hasWindows(std::size_t count) {
        return eventually([&] { return desktop().windowsOf(alpha).size() == count; });
    }
    [[nodiscard]] bool hasWindowTitled(const std::string& title) {
        return eventually([&] {
            for (const auto window : desktop().windowsOf(alpha)) {
                if (desktop().client().text(window, "_NET_WM_NAME") == title ||
                    desktop().client().text(window, "WM_NAME") == title)
                    return true;
            }
            return false;
        });
    }

    /// How often the actions' icon is in the menu.
    [[nodiscard]] int iconsIn(const PixelRect& menu) {
        return desktop().picture(menu).count(iconColour) / (iconSide * iconSide);
    }

    static constexpr int iconSide = 16;
    static constexpr Colour iconColour{200, 40, 160};
    App alpha = someApps(1)[0];
};

TEST_F(AppActions, AreInTheMenuOfAnAppThatDoesNotRunToo) {
    runWithActions({"compose", "calendar"});
    const auto menu = openMenu(alphaTile());
    ASSERT_NE(menu, PixelRect{});
    EXPECT_TRUE(eventually([&] { return iconsIn(menu) == 2; }));
    // Two actions, a separator, "Open" and "Show in".
    choose(menu, 1, 5);
    EXPECT_TRUE(logs("menu action calendar of " + alpha.id));
    EXPECT_TRUE(hasWindowTitled("calendar"));
}

TEST_F(AppActions, AMiddleClickOpensANewWindow) {
    runWithActions({"compose", "new-window"});
    launchAlpha();
    desktop().pointer().click(alphaTile(), Pointer::Button::middle);
    EXPECT_TRUE(logs("middle click new window " + alpha.id));
    EXPECT_TRUE(hasWindows(2));
    EXPECT_TRUE(hasWindowTitled("new-window"));
}

TEST_F(AppActions, AMiddleClickStartsAnAppAgainThatHasNoActionForThat) {
    runWithActions({"compose"});
    launchAlpha();
    desktop().pointer().click(alphaTile(), Pointer::Button::middle);
    EXPECT_TRUE(hasWindows(2));
    EXPECT_EQ(desktop().log().count("launch failed"), 0);
}

TEST_F(AppActions, AMiddleClickLaunchesAnAppThatDoesNotRun) {
    runWithActions({});
    desktop().pointer().click(alphaTile(), Pointer::Button::middle);
    EXPECT_TRUE(logs("click launch " + alpha.id));
    EXPECT_TRUE(hasWindows(1));
}

}
}
