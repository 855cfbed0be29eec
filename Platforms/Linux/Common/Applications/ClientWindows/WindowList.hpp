/// All programs' windows, as the window system lists them, and what can be requested of them.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Applications/ClientWindows/WindowIconSource.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireline::xdg {

class WindowList {
public:
    virtual ~WindowList() = default;

    /// Oldest first, without this program's own windows.
    [[nodiscard]] virtual const std::vector<ClientWindow>& windows() const = 0;

    /// The window with keyboard focus; `none` if there is none.
    [[nodiscard]] virtual WindowID activeWindow() const = 0;

    /// The current desktop; nullopt if that is unknown.
    [[nodiscard]] virtual std::optional<std::uint32_t> currentDesktop() const = 0;

    /// Calls `handler` after the windows, the active one or the desktop changed.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;

    /// The windows' titles, in this order; empty for a window that has none or is gone. Sanitised
    /// and of bounded length. Only read when they are asked for, since some programs change their
    /// titles many times per second.
    [[nodiscard]] virtual std::vector<std::string> titles(std::span<const WindowID> windows) const {
        return std::vector<std::string>(windows.size());
    }

    /// All images that the window has as its icon, smallest first.
    [[nodiscard]] virtual std::vector<WindowIcon> icons(WindowID window) const = 0;

    // Requests, which are carried out in order, but perhaps much later. `flush` sends them.

    virtual void iconify(WindowID window) = 0;
    /// Undoes `iconify`, and nothing else.
    virtual void restore(WindowID window) = 0;
    /// Brings the window to the front and gives it the focus.
    virtual void activate(WindowID window) = 0;
    /// Asks the window to close, as its close button does.
    virtual void close(WindowID window) = 0;
    virtual void showDesktop(std::uint32_t desktop) = 0;
    virtual void flush() = 0;
};

}
