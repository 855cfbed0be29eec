#include "Panels/Keeping/DockHints.hpp"

#include "Connection/X11Connection.hpp"
#include "Platform/PanelTitles.hpp"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11::DockHints {
namespace {

/// Not ABOVE: window managers keep docks above ordinary windows because of their type, and some
/// would keep a dock that asks for more above full-screen windows too.
constexpr std::array<std::string_view, 3> states{
    "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"};
constexpr std::uint32_t allDesktops = 0xffffffffU;

void setAtoms(const X11Connection& connection, xcb_window_t window, std::string_view property,
              std::span<const std::string_view> names) {
    std::vector<std::uint32_t> atoms;
    for (const std::string_view name : names) {
        atoms.push_back(connection.atom(name));
    }
    connection.setItems(window, property, XCB_ATOM_ATOM, atoms);
}

void setNoInput(const X11Connection& connection, xcb_window_t window) {
    constexpr std::uint32_t inputHint = 1U << 0U;
    constexpr std::uint32_t stateHint = 1U << 1U;
    constexpr std::uint32_t normalState = 1;
    const std::array<std::uint32_t, 9> hints{inputHint | stateHint, 0, normalState};
    connection.setItems(window, "WM_HINTS", XCB_ATOM_WM_HINTS, hints);
}

}

void apply(const X11Connection& connection, xcb_window_t window, std::uint32_t displayID) {
    using namespace std::string_view_literals;
    setAtoms(connection, window, "_NET_WM_WINDOW_TYPE", std::array{"_NET_WM_WINDOW_TYPE_DOCK"sv});
    setAtoms(connection, window, "_NET_WM_STATE", states);
    connection.setItems(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, std::array{allDesktops});
    // Without WM_TAKE_FOCUS, because a dock never takes the focus.
    setAtoms(connection, window, "WM_PROTOCOLS",
             std::array{"WM_DELETE_WINDOW"sv, "_NET_WM_PING"sv});
    setNoInput(connection, window);
    applySizeHints(connection, window);

    constexpr std::string_view windowClass = "vireline\0Vireline\0"sv;
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(windowClass.size()),
                        windowClass.data());
    const std::string title = panelTitle(displayID);
    connection.setText(window, "_NET_WM_NAME", title);
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(title.size()), title.data());
}

void applySizeHints(const X11Connection& connection, xcb_window_t window) {
    constexpr std::uint32_t userPosition = 1U << 0U;
    constexpr std::uint32_t userSize = 1U << 1U;
    constexpr std::uint32_t programPosition = 1U << 2U;
    constexpr std::uint32_t gravity = 1U << 9U;
    std::array<std::uint32_t, 18> hints{};
    hints.front() = userPosition | userSize | programPosition | gravity;
    hints.back() = XCB_GRAVITY_STATIC;
    connection.setItems(window, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
}

void assertState(const X11Connection& connection, xcb_window_t window) {
    constexpr std::uint32_t add = 1;
    constexpr std::uint32_t application = 1;
    for (const std::string_view state : states) {
        connection.sendToRoot(window, "_NET_WM_STATE",
                              std::array{add, connection.atom(state), 0U, application});
    }
    connection.sendToRoot(window, "_NET_WM_DESKTOP", std::array{allDesktops, application});
    connection.flush();
}

}
