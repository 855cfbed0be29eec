#include "Peers/Peer.hpp"

#include <sstream>

namespace vireline::desktop {
namespace {

/// At the bottom of the second display, where the program and the panel are.
constexpr PixelRect bottomOfSecond{2780, 1040, 200, 30};
/// Where a window that fills the first display is.
constexpr PixelRect insideFirst{860, 540, 200, 30};

Peer onBoth(Peer peer, bool isOnSway, const PixelRect& firstPixels) {
    peer.isOnSway = isOnSway;
    peer.name += isOnSway ? "" : ", X11";
    peer.firstPixels = firstPixels;
    return peer;
}

/// A window that fills its display, with nothing in it: what Qt and its plugin cost.
Peer plainQt() {
    Peer peer;
    peer.name = "Qt alone";
    peer.package = "qt6-wayland";
    peer.command = {WAYLAND_TEST_APP, "--size", "1920x1000"};
    peer.configure = [](VirtualDesktop& desktop, std::span<const App>) {
        desktop.environment()["QT_QPA_PLATFORM"] = desktop.isWayland() ? "wayland" : "xcb";
    };
    peer.launchers = [](const PixelRect& frame) {
        return Line{{frame.x + 1, frame.center().y},
                    {frame.x + comparedLaunchers * panelThickness, frame.center().y}};
    };
    return peer;
}

/// It has no launchers with icons, but clickable texts, and the list of windows with their icons.
void configureWaybar(VirtualDesktop& desktop, std::span<const App> apps) {
    std::ostringstream names;
    std::ostringstream modules;
    for (const App& app : apps) {
        const auto module = "\"custom/" + app.name + '"';
        names << module << ", ";
        modules << ",\n"
                << module << R"(: {"format": ")" << app.name
                << R"(", "tooltip": false, "on-click": "gtk-launch )" << app.id << "\"}";
    }
    writeFile(desktop.home().folder() / ".config/waybar/config",
              R"({"layer": "top", "position": "bottom", "output": "X11-2", "height": )" +
                  std::to_string(panelThickness) + R"(, "modules-left": [)" + names.str() +
                  "\"wlr/taskbar\"]" + modules.str() + ",\n" +
                  R"("wlr/taskbar": {"format": "{icon}", "icon-theme": "Papirus"}})");
    // Its own style asks for an icon font, which this one does without.
    writeFile(desktop.home().folder() / ".config/waybar/style.css",
              "* { font-family: DejaVu Sans; font-size: 16px; padding: 0 4px; }\n"
              "window#waybar { background: #202020; color: #ffffff; }\n");
}

Peer waybar() {
    constexpr int textPitch = 56;
    Peer peer;
    peer.name = "waybar";
    peer.package = "waybar";
    peer.command = {"waybar"};
    peer.configure = configureWaybar;
    peer.launchers = [](const PixelRect& frame) {
        const int y = frame.center().y;
        return Line{{frame.x + 1, y}, {frame.x + comparedLaunchers * textPitch, y}};
    };
    return peer;
}

}

std::vector<Peer> waylandPeers() {
    std::vector<Peer> peers;
    for (const bool isOnSway : {false, true}) {
        peers.push_back(onBoth(plainQt(), isOnSway, insideFirst));
        peers.push_back(onBoth(vireline("Vireline", false), isOnSway, bottomOfSecond));
        peers.push_back(onBoth(vireline("Vireline, magnified", true), isOnSway, bottomOfSecond));
    }
    peers.push_back(onBoth(waybar(), true, bottomOfSecond));
    return peers;
}

}
