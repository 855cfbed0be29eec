/// Tiles follow the desktop's icon theme while the program runs.
#include "DesktopTest.hpp"
#include "VirtualDesktop/Screen/Picture.hpp"
#include "VirtualDesktop/Session/WidgetTheme.hpp"

namespace vireline::desktop {
namespace {

constexpr Colour first{0x20, 0x90, 0xd0};
constexpr Colour second{0xd0, 0x50, 0x20};

class ChosenIcons : public DesktopTest {
protected:
    /// Runs the program with an app whose icon is in both themes.
    void runWithTheme(const std::string& theme) {
        auto& desktop = make({.monitors = twoMonitors()});
        installTheme("First", first);
        installTheme("Second", second);
        App app = someApps(1)[0];
        app.icon = "probe";
        desktop.home().install(app);
        desktop.home().pin(std::vector{app});
        writeFile(settings(), choice(theme));
        desktop.runVireline();
        ASSERT_TRUE(docksSettle(tiles(1)));
    }

    [[nodiscard]] std::filesystem::path settings() {
        return desktop().home().folder() / ".config/gtk-3.0/settings.ini";
    }
    static std::string choice(const std::string& theme) {
        return "[Settings]\ngtk-icon-theme-name=" + theme + "\n";
    }
    [[nodiscard]] PixelPoint icon() { return layout("right", tiles(1)).icon(0); }

private:
    void installTheme(const std::string& name, Colour colour) {
        constexpr int side = 48;
        const auto folder = desktop().home().folder() / ".local/share/icons" / name;
        writeFile(folder / "index.theme",
                  "[Icon Theme]\nName=" + name + "\nDirectories=all\n[all]\nSize=48\n");
        std::filesystem::create_directories(folder / "all");
        Picture{side, side, colour}.writePNG(folder / "all/probe.png");
    }
};

TEST_F(ChosenIcons, FollowTheUsersSettings) {
    runWithTheme("First");
    ASSERT_TRUE(turns(icon(), first));

    replaceFile(settings(), choice("Second"));
    EXPECT_TRUE(turns(icon(), second));
    writeFile(settings(), choice("First"));
    EXPECT_TRUE(turns(icon(), first));
}

TEST_F(ChosenIcons, FollowTheSettingsDaemon) {
    runWithTheme("First");
    ASSERT_TRUE(turns(icon(), first));

    const auto daemon = announceIconTheme(desktop().client(), "Second");
    EXPECT_TRUE(turns(icon(), second));
    changeIconTheme(desktop().client(), daemon, "First");
    EXPECT_TRUE(turns(icon(), first));
}

}
}
