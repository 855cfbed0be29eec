#include "Applications/EwmhWindowList.hpp"

#include "Applications/WindowIcons.hpp"
#include "Connection/PropertyBatch.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace vireline::x11 {
namespace {

/// EWMH source indication 2: the request comes from a pager or taskbar, that is, from the user.
constexpr std::uint32_t fromPager = 2;
constexpr std::uint32_t iconicState = 3;
constexpr std::size_t maximumTitleBytes = 1024;

}

EwmhWindowList::EwmhWindowList(X11Connection& connection, RunLoop& runLoop)
    : connection_(connection), clients_(connection, runLoop) {
    clients_.onChange = [this] { changes_.notify(); };
}

/// Some window managers change a title to tell windows apart, for example "Notes <2>".
std::vector<std::string> EwmhWindowList::titles(std::span<const xdg::WindowID> windows) const {
    static constexpr std::array<std::string_view, 3> names{"_NET_WM_VISIBLE_NAME", "_NET_WM_NAME",
                                                           "WM_NAME"};
    PropertyBatch batch{connection_};
    std::vector<std::array<std::size_t, names.size()>> requests;
    requests.reserve(windows.size());
    for (const xdg::WindowID window : windows) {
        auto& asked = requests.emplace_back();
        std::ranges::transform(names, asked.begin(), [&](std::string_view name) {
            return batch.ask(xcbWindow(window), name, maximumTitleBytes);
        });
    }
    std::vector<std::string> titles;
    titles.reserve(windows.size());
    for (const auto& asked : requests) {
        std::string& title = titles.emplace_back();
        for (const std::size_t request : asked) {
            if (title.empty())
                title = xdg::PlainText::clean(batch.bytes(request), maximumTitleBytes);
        }
    }
    return titles;
}

std::vector<xdg::WindowIcon> EwmhWindowList::icons(xdg::WindowID window) const {
    return WindowIcons::parse(
        connection_.items(xcbWindow(window), "_NET_WM_ICON", XCB_ATOM_CARDINAL));
}

void EwmhWindowList::iconify(xdg::WindowID window) {
    const std::array<std::uint32_t, 1> data{iconicState};
    connection_.sendToRoot(xcbWindow(window), "WM_CHANGE_STATE", data);
}

void EwmhWindowList::restore(xdg::WindowID window) {
    xcb_map_window(connection_.get(), xcbWindow(window));
}

void EwmhWindowList::activate(xdg::WindowID window) {
    const std::array<std::uint32_t, 3> data{fromPager, connection_.userTime(),
                                            clients_.activeWindow()};
    connection_.sendToRoot(xcbWindow(window), "_NET_ACTIVE_WINDOW", data);
}

void EwmhWindowList::close(xdg::WindowID window) {
    const auto supported = connection_.atoms(connection_.root(), "_NET_SUPPORTED");
    const xcb_atom_t request = connection_.atom("_NET_CLOSE_WINDOW");
    if (std::ranges::find(supported, request) != supported.end()) {
        const std::array<std::uint32_t, 2> data{connection_.userTime(), fromPager};
        connection_.sendToRoot(xcbWindow(window), "_NET_CLOSE_WINDOW", data);
        return;
    }
    // If the window manager does not support this, the window itself is asked to close, provided it
    // takes part in the protocol.
    const auto protocols = connection_.atoms(xcbWindow(window), "WM_PROTOCOLS");
    const xcb_atom_t deletion = connection_.atom("WM_DELETE_WINDOW");
    if (std::ranges::find(protocols, deletion) != protocols.end()) {
        const std::array<std::uint32_t, 2> data{deletion, connection_.userTime()};
        connection_.sendToWindow(xcbWindow(window), "WM_PROTOCOLS", data);
    }
}

void EwmhWindowList::showDesktop(std::uint32_t desktop) {
    const std::array<std::uint32_t, 2> data{desktop, connection_.userTime()};
    connection_.sendToRoot(connection_.root(), "_NET_CURRENT_DESKTOP", data);
}

}
