#include "Applications/ClientWindows/AppWindows.hpp"

#include <algorithm>
#include <iterator>

namespace vireline::xdg::AppWindows {

std::vector<ClientWindow> ofProcess(std::span<const ClientWindow> windows,
                                    std::int32_t processIdentifier) {
    std::vector<ClientWindow> all;
    std::ranges::copy_if(windows, std::back_inserter(all), &ClientWindow::isOrdinary);
    std::vector<ClientWindow> its;
    std::ranges::copy_if(all, std::back_inserter(its), [=](const ClientWindow& window) {
        return window.processIdentifier == processIdentifier;
    });
    return processIdentifier == 0 || its.empty() ? all : its;
}

std::optional<ClientWindow> mainWindow(std::span<const ClientWindow> windows) {
    std::optional<ClientWindow> best;
    for (const ClientWindow& window : windows) {
        if (!window.isDialog && (!best || window.lastActive >= best->lastActive))
            best = window;
    }
    return best;
}

}
