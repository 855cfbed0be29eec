/// A plain client of the virtual X server: properties, geometry and stacking of any windows, and
/// windows of its own. Queries about destroyed windows have no result.
#pragma once

#include "Connection/XcbHandles.hpp"
#include "VirtualDesktop/Screen/PixelGeometry.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

using x11::as;
using x11::eventType;
using x11::Owned;
using x11::sendEvent;

class XClient {
public:
    /// Throws if there is no such display.
    explicit XClient(const std::string& display);

    [[nodiscard]] xcb_connection_t* get() const noexcept { return connection_.get(); }
    [[nodiscard]] const xcb_screen_t& screen() const noexcept { return *screen_; }
    [[nodiscard]] xcb_window_t root() const noexcept { return screen_->root; }
    [[nodiscard]] bool hasExtension(const std::string& name) const;

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const;

    [[nodiscard]] std::vector<std::uint32_t> items(xcb_window_t window,
                                                   std::string_view property) const;
    [[nodiscard]] std::vector<xcb_atom_t> atoms(xcb_window_t window,
                                                std::string_view property) const;
    /// The bytes of a property of format 8.
    [[nodiscard]] std::string text(xcb_window_t window, std::string_view property) const;
    [[nodiscard]] bool hasProperty(xcb_window_t window, std::string_view property) const;
    /// Whether a window manager has redirected the root window's children.
    [[nodiscard]] bool isManaged() const;

    void setItems(xcb_window_t window, std::string_view property, xcb_atom_t type,
                  const std::vector<std::uint32_t>& values) const;
    void setAtoms(xcb_window_t window, std::string_view property,
                  std::initializer_list<std::string_view> values) const;
    void setText(xcb_window_t window, std::string_view property, std::string_view value) const;
    void setText(xcb_window_t window, std::string_view property, std::string_view type,
                 std::string_view value) const;

    /// XCB_NONE if the selection has no owner.
    [[nodiscard]] xcb_window_t selectionOwner(std::string_view selection) const;

    /// Sends a client message about `window` to it, or to all that select `mask` on another one.
    void send(xcb_window_t window, std::string_view message,
              const std::vector<std::uint32_t>& data) const;
    void sendTo(xcb_window_t destination, std::uint32_t mask, xcb_window_t window,
                std::string_view message, const std::vector<std::uint32_t>& data) const;
    /// Sends a client message about `window` to the root window, as EWMH requires.
    void sendToRoot(xcb_window_t window, std::string_view message,
                    const std::vector<std::uint32_t>& data) const;

    /// Direct children of `window`, bottom first.
    [[nodiscard]] std::vector<xcb_window_t> children(xcb_window_t window) const;
    /// All windows below the root window, parents before children, bottom first.
    [[nodiscard]] std::vector<xcb_window_t> allWindows() const;
    /// The chain of windows at this position, from the root window to the innermost one.
    [[nodiscard]] std::vector<xcb_window_t> windowsAt(PixelPoint place) const;
    /// The innermost of them, which the pointer would be over.
    [[nodiscard]] xcb_window_t windowAt(PixelPoint place) const { return windowsAt(place).back(); }
    /// The window's frame without its border.
    [[nodiscard]] std::optional<PixelRect> frame(xcb_window_t window) const;
    /// Whether the window and all its parents are mapped.
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    [[nodiscard]] bool overridesRedirect(xcb_window_t window) const;
    [[nodiscard]] int depth(xcb_window_t window) const;

    /// The window manager's clients, oldest first.
    [[nodiscard]] std::vector<xcb_window_t> managedWindows() const;
    [[nodiscard]] xcb_window_t activeWindow() const;
    [[nodiscard]] xcb_window_t focusedWindow() const;

    /// Creates a window with this background, unmapped.
    [[nodiscard]] xcb_window_t createWindow(const PixelRect& frame, std::uint32_t background) const;
    void map(xcb_window_t window) const;
    void destroy(xcb_window_t window) const;

    /// The next queued event, if any.
    [[nodiscard]] Owned<xcb_generic_event_t> pollEvent() const;

    /// Blocks until the server has processed all requests so far.
    void sync() const;

private:
    [[nodiscard]] Owned<xcb_get_property_reply_t> property(xcb_window_t window,
                                                           std::string_view name) const;

    x11::ConnectionHandle connection_;
    const xcb_screen_t* screen_ = nullptr;
    mutable std::map<std::string, xcb_atom_t, std::less<>> atoms_;
};

}
