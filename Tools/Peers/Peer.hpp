/// The docks and panels to compare: how to configure each of them to show the same launchers, how
/// to start it, and where the pointer has to move over them.
#pragma once

#include "VirtualDesktop/VirtualDesktop.hpp"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vireline::desktop {

/// The pointer's path, including both ends.
struct Line {
    PixelPoint from;
    PixelPoint to;
};

/// The number of launchers in each of them.
inline constexpr int comparedLaunchers = 10;
/// Pixels, for all launchers with a configurable size.
inline constexpr int launcherIconSize = 44;
/// The height of panels with launchers of that size.
inline constexpr int panelThickness = 58;
/// The factor for docks with magnification.
inline constexpr double peersMagnification = 1.5;

struct Peer {
    std::string name;
    /// Its Debian package, whose version is reported; empty for the program itself.
    std::string package;
    std::vector<std::string> command;
    /// Writes its settings to the desktop's home folder.
    std::function<void(VirtualDesktop&, std::span<const App>)> configure;
    /// Whether it runs under sway instead of on X11.
    bool isOnSway = false;
    /// Where its first pixels appear. Used under Wayland, where other programs cannot observe that
    /// a dock is mapped.
    PixelRect firstPixels{};
    /// The path over the launchers, derived from the frame of the dock's window.
    std::function<Line(const PixelRect&)> launchers;
};

/// The program itself.
[[nodiscard]] Peer vireline(const std::string& name, bool magnifies);
/// The program with and without magnification, Plank, Cairo-Dock.
[[nodiscard]] std::vector<Peer> docks();
/// tint2, xfce4-panel, lxqt-panel, polybar.
[[nodiscard]] std::vector<Peer> panels();
/// The program under X11 and under sway, waybar, and a Qt program without content under both.
[[nodiscard]] std::vector<Peer> waylandPeers();

}
