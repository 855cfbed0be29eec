/// Inspects other programs' windows, with a time limit.
#pragma once

#include "ClientWindows/WindowSnapshot.hpp"
#include "Connection/SideConnection.hpp"
#include "Connection/X11Connection.hpp"
#include "Foundation/Result.hpp"

#include <xcb/xproto.h>

#include <optional>

namespace vireline::x11 {

/// What the current window manager offers to programs that move other programs' windows.
enum class ManagerAbility {
    noManager,
    movesNone,    ///< runs, but accepts no such requests, like some tiling managers
    movesWindows, ///< lists, activates, moves and resizes windows
};

class WindowReader {
public:
    /// Error codes: the window is gone, or the X server does not reply.
    static constexpr int windowIsGone = XCB_WINDOW;
    static constexpr int noAnswer = 110; // ETIMEDOUT

    /// Queries are sent on `side`.
    WindowReader(const X11Connection& connection, SideConnection& side);

    [[nodiscard]] Result<WindowSnapshot> read(xcb_window_t window,
                                              SideConnection::Deadline deadline) const;

    /// Whether a change of this property affects what `read` returns.
    [[nodiscard]] bool concerns(xcb_atom_t property) const;

    /// If there is no reply in time, the result is that there is no window manager.
    [[nodiscard]] ManagerAbility managerAbility(SideConnection::Deadline deadline) const;

    /// The window manager's check window, which is destroyed when the manager exits.
    [[nodiscard]] std::optional<xcb_window_t>
    managerWindow(SideConnection::Deadline deadline) const;

    [[nodiscard]] bool canMoveWindows(SideConnection::Deadline deadline) const {
        return managerAbility(deadline) == ManagerAbility::movesWindows;
    }

    /// Whether a button or key is currently held down.
    [[nodiscard]] bool isUserAtWork(SideConnection::Deadline deadline) const;

private:
    const X11Connection& connection_;
    SideConnection& side_;
};

}
