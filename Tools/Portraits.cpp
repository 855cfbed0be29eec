/// Takes the screenshots for the documentation: docks and the program's own windows, light and
/// dark, at one and two pixels per point.
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Screen/Wallpaper.hpp"
#include "VirtualDesktop/Session/WidgetTheme.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view settingsTitle = "Vireline Settings";
constexpr std::string_view tourTitle = "Welcome to Vireline";
constexpr Colour plain{120, 120, 126};

/// The desktop's appearance in a screenshot, and its suffix for the file name.
struct Look {
    std::string_view theme;
    double scale;
    std::string suffix;
};

std::vector<Look> looks() {
    return {{"Adwaita", 1, "-light"},
            {"Adwaita-dark", 1, "-dark"},
            {"Adwaita", 2, "-light@2x"},
            {"Adwaita-dark", 2, "-dark@2x"}};
}

/// A desktop with two displays, the first of which has another program's panel, and with the
/// program running on it.
class Sitting {
public:
    Sitting(std::string_view theme, double scale, std::string_view preferences)
        : desktop_({TESTED_PROGRAM, TEST_APP, FILE_MANAGER}, options(scale)), scale_(scale) {
        announceWidgetTheme(desktop_.client(), theme);
        paintWallpaper(desktop_.client(), desktop_.displays().monitors);
        auto& home = desktop_.home();
        writeFile(home.folder() / ".config/gtk-3.0/settings.ini",
                  "[Settings]\ngtk-icon-theme-name=Papirus\n");
        // Without preferences this counts as the program's first start.
        fs::remove_all(home.dataFolder());
        if (!preferences.empty())
            home.writePreferences(preferences);
        constexpr int panelThickness = 44;
        desktop_.reserve({"main", Edge::bottom, panelThickness});
        // The program's windows open on the display with the pointer, where no dock covers them.
        desktop_.pointer().moveTo(desktop_.monitor("main").frame.center());
    }

    [[nodiscard]] VirtualDesktop& desktop() { return desktop_; }

    /// The frame of one of the program's windows, without the window manager's decoration.
    [[nodiscard]] PixelRect waitForWindow(std::string_view title) const {
        std::optional<PixelRect> found;
        const auto& client = desktop_.client();
        const auto isThere = [&] {
            const auto windows = client.managedWindows();
            const auto window = std::ranges::find_if(windows, [&](xcb_window_t managed) {
                return client.text(managed, "_NET_WM_NAME") == title && client.isViewable(managed);
            });
            found = window == windows.end() ? std::nullopt : client.frame(*window);
            return found.has_value();
        };
        if (!eventually(isThere))
            throw std::runtime_error{std::string{title} + " does not open"};
        return *found;
    }

    /// Takes a screenshot after nothing has moved for a while.
    void take(const PixelRect& area, const fs::path& file) const {
        using namespace std::chrono_literals;
        auto seen = desktop_.picture(area);
        const auto moves = [&] {
            auto now = desktop_.picture(area);
            const bool isMoving = now != seen;
            seen = std::move(now);
            return isMoving;
        };
        while (eventually(moves, 600ms)) {
        }
        if (!seen.writePNG(file))
            throw std::runtime_error{"cannot write " + file.string()};
        std::cout << file.string() << '\n' << std::flush;
    }

    /// Converts a length to pixels.
    [[nodiscard]] int pixels(int points) const { return static_cast<int>(points * scale_); }

private:
    static VirtualDesktop::Options options(double scale) {
        const auto pixels = [scale](int points) { return static_cast<int>(points * scale); };
        VirtualDesktop::Options options;
        options.monitors = {{"main", {0, 0, pixels(1280), pixels(800)}},
                            {"side", {pixels(1280), 0, pixels(1280), pixels(800)}}};
        options.scales = {{"main", scale}, {"side", scale}};
        options.compositor = true;
        options.sessionBus = true;
        options.installedApps = true;
        options.width = pixels(2560);
        options.height = pixels(800);
        return options;
    }

    VirtualDesktop desktop_;
    double scale_;
};

void takeSettings(const Look& look, const fs::path& folder) {
    Sitting sitting{look.theme, look.scale,
                    R"({"onboardingCompleted": true, "magnificationEnabled": true,
                        "anchorAppleDock": true, "openOnThisDisplay": true})"};
    auto& desktop = sitting.desktop();
    desktop.runVireline();
    // A second start shows the settings of the running instance.
    desktop.run(TESTED_PROGRAM, {});
    const auto window = sitting.waitForWindow(settingsTitle);
    sitting.take(window, folder / ("settings" + look.suffix + ".png"));

    desktop.pointer().moveTo({window.x + sitting.pixels(3), window.center().y});
    constexpr int manyTurns = 40;
    for (int i = 0; i < manyTurns; ++i) {
        desktop.pointer().press(Pointer::Button::wheelDown);
        desktop.pointer().release(Pointer::Button::wheelDown);
    }
    sitting.take(window, folder / ("settings-end" + look.suffix + ".png"));
}

void takeTour(const Look& look, const fs::path& folder) {
    Sitting sitting{look.theme, look.scale, {}};
    auto& desktop = sitting.desktop();
    desktop.runVireline();
    const auto window = sitting.waitForWindow(tourTitle);
    constexpr int pages = 3;
    for (int page = 1; page <= pages; ++page) {
        sitting.take(window, folder / ("welcome-" + std::to_string(page) + look.suffix + ".png"));
        desktop.keyboard().type(Keyboard::enter);
    }
}

/// An app of a kind found on every desktop.
App scenery(const std::string& name, const std::string& icon) {
    return {"org.example." + name, name, plain, {"--size", "520x360"}, {}, icon};
}

void takeDocks(const fs::path& folder) {
    Sitting sitting{"Adwaita", 2,
                    R"({"onboardingCompleted": true, "iconSize": 48,
                        "magnificationEnabled": true, "magnification": 1.7})"};
    auto& desktop = sitting.desktop();
    const std::vector apps{scenery("Terminal", "utilities-terminal"),
                           scenery("Editor", "accessories-text-editor"),
                           scenery("Browser", "web-browser"),
                           scenery("Mail", "internet-mail"),
                           scenery("Calendar", "office-calendar"),
                           scenery("Music", "multimedia-audio-player"),
                           scenery("Pictures", "multimedia-photo-viewer"),
                           scenery("Software", "system-software-install")};
    for (const App& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    const App running = scenery("Calculator", "accessories-calculator");
    desktop.home().install(running);
    desktop.launch(running);
    desktop.launch(apps[2]);
    desktop.environment()["VIRELINE_DEMO_CURSOR"] = "0.4";
    desktop.runVireline();
    if (!eventually([&] { return desktop.docks().shown().size() == 1; }))
        throw std::runtime_error{"the dock does not come up"};
    const auto display = desktop.monitor("side").frame;
    const int height = sitting.pixels(240);
    sitting.take({display.x, display.bottom() - height, display.width, height},
                 folder / "docks.png");
}

void run(const std::vector<std::string>& arguments) {
    if (arguments.size() != 1)
        throw std::runtime_error{"usage: DesktopPortraits <folder>"};
    const fs::path folder = arguments.front();
    fs::create_directories(folder);
    takeDocks(folder);
    for (const Look& look : looks()) {
        takeSettings(look, folder);
        takeTour(look, folder);
    }
}

}
}

int main(int count, char** arguments) {
    try {
        vireline::desktop::run({arguments + 1, arguments + count});
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "portraits: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
