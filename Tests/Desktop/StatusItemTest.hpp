/// The program with its status item, and a tray of its own.
#pragma once

#include "ProgramWindowTest.hpp"

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace vireline::desktop {

inline constexpr std::string_view trayConfiguration = "rounded = 0\n"
                                                      "background_color = #102030 100\n"
                                                      "panel_items = S\n"
                                                      "panel_size = 200 32\n"
                                                      "panel_position = top left horizontal\n"
                                                      "panel_background_id = 1\n"
                                                      "systray_padding = 4 4 4\n"
                                                      "systray_icon_size = 24\n";

class StatusItem : public ProgramWindowTest {
protected:
    ChildProcess& startTray() {
        const auto configuration = desktop().home().scratch() / "tray.conf";
        writeFile(configuration, trayConfiguration);
        return desktop().run("tint2", {"-c", configuration.string()});
    }

    /// The icon in the tray; XCB_NONE if there is none.
    [[nodiscard]] xcb_window_t trayIcon() {
        const auto& client = desktop().client();
        for (const xcb_window_t window : client.allWindows()) {
            if (client.text(window, "_NET_WM_NAME") == "Vireline" && client.isViewable(window))
                return window;
        }
        return XCB_NONE;
    }
    [[nodiscard]] testing::AssertionResult trayHasIcon(bool has) {
        if (eventually([&] { return (trayIcon() != XCB_NONE) == has; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << (has ? "no icon in the tray" : "the icon stays");
    }
    /// The icon's place on the screen.
    [[nodiscard]] PixelRect trayIconFrame() {
        return desktop().client().frame(trayIcon()).value_or(PixelRect{});
    }
    [[nodiscard]] testing::AssertionResult isRegistered(const NotifierHost& host,
                                                        std::size_t times = 1) {
        if (eventually([&] { return host.itemCount() >= times; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "the item is not registered";
    }

    [[nodiscard]] std::filesystem::path autostartEntry() {
        return desktop().home().folder() / ".config/autostart/vireline.desktop";
    }

    static constexpr int menuEntryCount = 5;
};

}
