/// Starts the Wayland compositor of a virtual desktop.
#pragma once

#include "VirtualDesktop/Compositors/CompositorSession.hpp"
#include "VirtualDesktop/Session/Home.hpp"
#include "VirtualDesktop/Session/WindowManagers.hpp"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vireline::desktop {

struct CompositorStart {
    WindowManager compositor = WindowManager::sway;
    const Home& home;
    std::string display;
    std::string sessionBus;
    std::vector<Monitor> monitors;
    /// Pixels per point, by monitor, where that is not 1. Only for sway.
    std::map<std::string, double> scales;
    /// The program for which KWin lists windows, by a desktop entry in the home; none if empty.
    std::filesystem::path permitted;
};

/// Throws if it does not start.
[[nodiscard]] std::unique_ptr<CompositorSession> startCompositor(const XClient& client,
                                                                 const CompositorStart& start);

}
