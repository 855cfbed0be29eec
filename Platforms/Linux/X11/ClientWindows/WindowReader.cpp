#include "ClientWindows/WindowReader.hpp"

#include "Connection/PropertyBatch.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ranges>
#include <string_view>

namespace vireline::x11 {
namespace {

static_assert(WindowReader::noAnswer == ETIMEDOUT);

constexpr std::array<std::string_view, 5> placementProperties{
    "_NET_FRAME_EXTENTS", "_GTK_FRAME_EXTENTS", "WM_NORMAL_HINTS", "_NET_WM_STATE",
    "_NET_WM_DESKTOP"};

constexpr std::array<std::string_view, 4> placementStates{
    "_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STATE_HIDDEN"};

constexpr std::array<std::string_view, 3> rootProperties{"_NET_SUPPORTING_WM_CHECK",
                                                         "_NET_SUPPORTED", "_NET_CURRENT_DESKTOP"};

/// What a window manager has to support.
constexpr std::array<std::string_view, 3> requests{"_NET_MOVERESIZE_WINDOW", "_NET_CLIENT_LIST",
                                                   "_NET_ACTIVE_WINDOW"};

constexpr std::uint32_t everyDesktop = 0xffffffff;
constexpr std::size_t itemBytes = sizeof(std::uint32_t);
/// A sanity limit on the number of supported atoms.
constexpr std::size_t maximumAtoms = 4096;

/// A sanity limit: no frame is this thick.
constexpr std::uint32_t maximumFrame = 4096;

FrameExtents extents(std::span<const std::uint32_t> items) {
    constexpr std::size_t sides = 4;
    if (items.size() < sides ||
        std::ranges::any_of(items.first(sides), [](auto side) { return side > maximumFrame; }))
        return {};
    const auto side = [items](std::size_t index) { return static_cast<int>(items[index]); };
    return {.left = side(0), .right = side(1), .top = side(2), .bottom = side(3)};
}

template <std::ranges::contiguous_range Range>
bool has(const Range& values, std::uint32_t value) {
    return std::ranges::find(values, value) != std::ranges::end(values);
}

}

WindowReader::WindowReader(const X11Connection& connection, SideConnection& side)
    : connection_(connection), side_(side) {
    connection_.intern(placementProperties);
    connection_.intern(placementStates);
    connection_.intern(rootProperties);
    connection_.intern(requests);
}

Result<WindowSnapshot> WindowReader::read(xcb_window_t window,
                                          SideConnection::Deadline deadline) const {
    const auto geometryAsked = xcb_get_geometry(side_.get(), window);
    const auto cornerAsked = xcb_translate_coordinates(side_.get(), window, side_.root(), 0, 0);
    PropertyBatch batch{connection_, side_, deadline};
    const auto decoration = batch.ask(window, "_NET_FRAME_EXTENTS", 4 * itemBytes);
    const auto shadow = batch.ask(window, "_GTK_FRAME_EXTENTS", 4 * itemBytes);
    const auto hints = batch.ask(window, "WM_NORMAL_HINTS", 18 * itemBytes);
    const auto state = batch.ask(window, "_NET_WM_STATE", 64 * itemBytes);
    const auto desktop = batch.ask(window, "_NET_WM_DESKTOP", itemBytes);
    const auto currentDesktop = batch.ask(side_.root(), "_NET_CURRENT_DESKTOP", itemBytes);

    const auto geometry = side_.reply<xcb_get_geometry_reply_t>(geometryAsked, deadline);
    const auto corner = side_.reply<xcb_translate_coordinates_reply_t>(cornerAsked, deadline);
    if (!geometry || !corner) {
        const bool isLate = std::chrono::steady_clock::now() >= deadline;
        return std::unexpected{isLate ? PlatformError{noAnswer, "the X server does not answer"}
                                      : PlatformError{windowIsGone, "the window is gone"}};
    }
    WindowSnapshot snapshot;
    snapshot.client = {corner->dst_x, corner->dst_y, geometry->width, geometry->height};
    snapshot.decoration = extents(batch.items(decoration, XCB_ATOM_CARDINAL));
    snapshot.shadow = extents(batch.items(shadow, XCB_ATOM_CARDINAL));
    snapshot.hints = SizeHints::parse(batch.items(hints, XCB_ATOM_WM_SIZE_HINTS));
    const auto isIn = [&, all = batch.items(state, XCB_ATOM_ATOM)](std::string_view name) {
        return has(all, connection_.atom(name));
    };
    snapshot.fill = {.width = isIn("_NET_WM_STATE_MAXIMIZED_HORZ"),
                     .height = isIn("_NET_WM_STATE_MAXIMIZED_VERT"),
                     .screen = isIn("_NET_WM_STATE_FULLSCREEN")};
    snapshot.isIconified = isIn("_NET_WM_STATE_HIDDEN");
    snapshot.desktop = batch.firstItem(desktop, XCB_ATOM_CARDINAL);
    if (snapshot.desktop == everyDesktop)
        snapshot.desktop.reset();
    snapshot.currentDesktop = batch.firstItem(currentDesktop, XCB_ATOM_CARDINAL);
    return snapshot;
}

bool WindowReader::concerns(xcb_atom_t property) const {
    return std::ranges::any_of(placementProperties, [this, property](std::string_view name) {
        return connection_.atom(name) == property;
    });
}

ManagerAbility WindowReader::managerAbility(SideConnection::Deadline deadline) const {
    PropertyBatch ofRoot{connection_, side_, deadline};
    const auto check = ofRoot.ask(side_.root(), "_NET_SUPPORTING_WM_CHECK", itemBytes);
    const auto supported = ofRoot.ask(side_.root(), "_NET_SUPPORTED", maximumAtoms * itemBytes);
    const auto manager = ofRoot.firstItem(check, XCB_ATOM_WINDOW);
    const auto all = ofRoot.items(supported, XCB_ATOM_ATOM);
    if (!manager)
        return ManagerAbility::noManager;
    // A window manager that was killed leaves its properties behind, but its window is destroyed.
    PropertyBatch ofManager{connection_, side_, deadline};
    const auto same = ofManager.ask(*manager, "_NET_SUPPORTING_WM_CHECK", itemBytes);
    if (ofManager.firstItem(same, XCB_ATOM_WINDOW) != manager)
        return ManagerAbility::noManager;
    const bool moves = std::ranges::all_of(
        requests, [&](std::string_view name) { return has(all, connection_.atom(name)); });
    return moves ? ManagerAbility::movesWindows : ManagerAbility::movesNone;
}

std::optional<xcb_window_t> WindowReader::managerWindow(SideConnection::Deadline deadline) const {
    PropertyBatch batch{connection_, side_, deadline};
    const auto check = batch.ask(side_.root(), "_NET_SUPPORTING_WM_CHECK", itemBytes);
    return batch.firstItem(check, XCB_ATOM_WINDOW);
}

bool WindowReader::isUserAtWork(SideConnection::Deadline deadline) const {
    const auto pointerAsked = xcb_query_pointer(side_.get(), side_.root());
    const auto keysAsked = xcb_query_keymap(side_.get());
    const auto pointer = side_.reply<xcb_query_pointer_reply_t>(pointerAsked, deadline);
    const auto keys = side_.reply<xcb_query_keymap_reply_t>(keysAsked, deadline);
    constexpr unsigned int anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3 |
                                       XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5;
    return (pointer && (pointer->mask & anyButton) != 0) ||
           (keys && std::ranges::any_of(keys->keys, [](std::uint8_t bits) { return bits != 0; }));
}

}
