/// The docks and panels that are compared: how each is set up to show the same launchers, how it is
/// started, and where a pointer has to go to pass over them.
#pragma once

#include "VirtualDesktop/VirtualDesktop.hpp"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vireline::desktop {

/// What the pointer follows; both ends belong to it.
struct Line {
    PixelPoint from;
    PixelPoint to;
};

/// Of each of them.
inline constexpr int comparedLaunchers = 10;
/// Pixels, of every launcher that can have one.
inline constexpr int launcherIconSize = 44;
/// The height of the panels that have launchers of that size.
inline constexpr int panelThickness = 58;
/// Of the docks that magnify.
inline constexpr double peersMagnification = 1.5;

struct Peer {
    std::string name;
    /// Debian's, whose version is told; none for the program itself.
    std::string package;
    std::vector<std::string> command;
    /// Writes its settings into the desktop's home.
    std::function<void(VirtualDesktop&, std::span<const App>)> configure;
    /// Over the launchers, from the frame of the dock's window.
    std::function<Line(const PixelRect&)> launchers;
};

/// The program without and with magnification, Plank, Cairo-Dock.
[[nodiscard]] std::vector<Peer> docks();
/// tint2, xfce4-panel, lxqt-panel, polybar.
[[nodiscard]] std::vector<Peer> panels();

}
