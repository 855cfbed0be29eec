/// The windows of apps on a virtual desktop, of either kind.
#include "VirtualDesktop/Compositors/SwaySession.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <algorithm>
#include <iterator>

namespace vireline::desktop {
namespace {

/// The place that the test app is to put its windows at.
std::optional<PixelPoint> placeIn(const std::vector<std::string>& arguments) {
    const auto option = std::ranges::find(arguments, "--at");
    if (option == arguments.end())
        return std::nullopt;
    const std::string corner = *std::next(option);
    const auto comma = corner.find(',');
    return PixelPoint{std::stoi(corner.substr(0, comma)), std::stoi(corner.substr(comma + 1))};
}

std::string toPlace(PixelPoint corner) {
    return "move absolute position " + std::to_string(corner.x) + ' ' + std::to_string(corner.y);
}

}

template <class Condition>
std::vector<xcb_window_t> VirtualDesktop::swayWindows(const Condition& matches) const {
    std::vector<xcb_window_t> found;
    for (const auto& window : sway_->windows()) {
        if (matches(window))
            found.push_back(window.id);
    }
    return found;
}

std::vector<xcb_window_t> VirtualDesktop::windowsOf(const App& app) const {
    const std::string wanted = windowClass(app);
    if (sway_)
        return swayWindows([&](const auto& window) { return window.appID == wanted; });
    auto windows = client_->managedWindows();
    std::erase_if(windows, [&](xcb_window_t window) {
        const std::string classes = client_->text(window, "WM_CLASS");
        return classes != wanted + '\0' + wanted + '\0';
    });
    return windows;
}

std::vector<xcb_window_t> VirtualDesktop::visibleWindowsOf(const App& app) const {
    if (sway_) {
        return swayWindows([&](const auto& window) {
            return window.appID == windowClass(app) && window.isVisible;
        });
    }
    auto windows = windowsOf(app);
    std::erase_if(windows, [&](xcb_window_t window) { return !client_->isViewable(window); });
    return windows;
}

std::vector<xcb_window_t> VirtualDesktop::windowsTitled(std::string_view title) const {
    if (sway_) {
        return swayWindows(
            [&](const auto& window) { return window.title == title && window.isVisible; });
    }
    auto windows = client_->managedWindows();
    std::erase_if(windows, [&](xcb_window_t window) {
        return client_->text(window, "_NET_WM_NAME") != title || !client_->isViewable(window);
    });
    return windows;
}

bool VirtualDesktop::isActive(const App& app) const {
    const auto windows = windowsOf(app);
    return std::ranges::find(windows, activeWindow()) != windows.end();
}

xcb_window_t VirtualDesktop::activeWindow() const {
    if (!sway_)
        return client_->activeWindow();
    const auto active = swayWindows([](const auto& window) { return window.isFocused; });
    return active.empty() ? xcb_window_t{XCB_NONE} : active.front();
}

std::optional<PixelRect> VirtualDesktop::frameOf(xcb_window_t window) const {
    if (!sway_)
        return client_->frame(window);
    const auto windows = sway_->windows();
    const auto found = std::ranges::find(windows, window, &SwayControl::Window::id);
    return found == windows.end() ? std::nullopt : std::optional{found->frame};
}

void VirtualDesktop::moveWindow(xcb_window_t window, PixelPoint corner) const {
    if (sway_)
        return sway_->control().command("[con_id=" + std::to_string(window) + "] " +
                                        toPlace(sway_->toLayout(corner)));
    constexpr std::uint32_t placeOnly = (1U << 8U) | (1U << 9U) | (2U << 12U);
    client_->sendToRoot(
        window, "_NET_MOVERESIZE_WINDOW",
        {placeOnly, static_cast<std::uint32_t>(corner.x), static_cast<std::uint32_t>(corner.y)});
}

void VirtualDesktop::placeWindowsOf(const App& app,
                                    const std::vector<std::string>& arguments) const {
    const auto corner = placeIn(arguments);
    if (!sway_ || !corner)
        return;
    const std::string rule = "for_window [app_id=\"" + windowClass(app) + "\"] ";
    sway_->control().command(rule + toPlace(sway_->toLayout(*corner)));
    sway_->control().command(rule + "focus");
}

void VirtualDesktop::closeWindow(xcb_window_t window) const {
    if (sway_)
        return sway_->control().command("[con_id=" + std::to_string(window) + "] kill");
    client_->sendToRoot(window, "_NET_CLOSE_WINDOW", {0, 2});
}

void VirtualDesktop::demandAttention(xcb_window_t window) const {
    if (sway_)
        return sway_->control().command("[con_id=" + std::to_string(window) + "] urgent enable");
    constexpr std::uint32_t add = 1;
    constexpr std::uint32_t fromApplication = 1;
    client_->sendToRoot(
        window, "_NET_WM_STATE",
        {add, client_->atom("_NET_WM_STATE_DEMANDS_ATTENTION"), 0, fromApplication});
}

bool VirtualDesktop::isKeyboardTaken() const {
    return sway_ ? sway_->control().isKeyboardTaken() : keyboard().isHeld();
}

}
