/// Looks at other programs' windows, within a limit of time.
#pragma once

#include "ClientWindows/WindowSnapshot.hpp"
#include "Foundation/Result.hpp"
#include "X11/SideConnection.hpp"
#include "X11/X11Connection.hpp"

#include <xcb/xproto.h>

#include <optional>

namespace vireline::x11 {

/// What the window manager of the moment offers to programs that move others' windows.
enum class ManagerAbility {
    noManager,
    movesNone,    ///< it runs, but takes no such requests; some only tile
    movesWindows, ///< lists windows, activates, moves and sizes them
};

class WindowReader {
public:
    /// The codes of its errors: the window is gone, or the X server does not answer.
    static constexpr int windowIsGone = XCB_WINDOW;
    static constexpr int noAnswer = 110; // ETIMEDOUT

    /// `side` carries the questions.
    WindowReader(const X11Connection& connection, SideConnection& side);

    [[nodiscard]] Result<WindowSnapshot> read(xcb_window_t window,
                                              SideConnection::Deadline deadline) const;

    /// Whether a change of this property changes what `read` says.
    [[nodiscard]] bool concerns(xcb_atom_t property) const;

    /// No answer in time counts as no window manager.
    [[nodiscard]] ManagerAbility managerAbility(SideConnection::Deadline deadline) const;

    /// The window by which the window manager shows that it is there; it goes with the manager.
    [[nodiscard]] std::optional<xcb_window_t>
    managerWindow(SideConnection::Deadline deadline) const;

    [[nodiscard]] bool canMoveWindows(SideConnection::Deadline deadline) const {
        return managerAbility(deadline) == ManagerAbility::movesWindows;
    }

    /// Whether a button or a key is held down right now.
    [[nodiscard]] bool isUserAtWork(SideConnection::Deadline deadline) const;

private:
    const X11Connection& connection_;
    SideConnection& side_;
};

}
