#include "Applications/ClientWindows/AppWindows.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <utility>

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

std::vector<ClientWindow> latestFirst(std::span<const ClientWindow> windows) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (windows[i].isOrdinary)
            order.push_back(i);
    }
    std::ranges::sort(order, std::greater{},
                      [&](std::size_t i) { return std::pair{windows[i].lastActive, i}; });
    std::vector<ClientWindow> listed;
    std::ranges::transform(order, std::back_inserter(listed),
                           [&](std::size_t i) { return windows[i]; });
    return listed;
}

}
