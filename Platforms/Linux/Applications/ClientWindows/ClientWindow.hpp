/// One window that the window manager manages, as its properties describe it.
#pragma once

#include "Applications/Identity/WindowTraits.hpp"

#include <xcb/xproto.h>

#include <cstdint>
#include <optional>

namespace vireline::x11 {

struct ClientWindow {
    xcb_window_t id = XCB_NONE;
    WindowTraits traits;
    /// The owner's process on this machine; 0 when unknown.
    std::int32_t processIdentifier = 0;
    /// Whether it is a normal window or a dialog that asks for a place in taskbars: one that makes
    /// its program a running app.
    bool isOrdinary = false;
    /// Whether it is there for another window's or its program's sake, rather than for its own.
    bool isDialog = false;
    /// Iconified or otherwise not shown.
    bool isHidden = false;
    /// Nothing for a window that is on every desktop or does not say.
    std::optional<std::uint32_t> desktop;
    /// When it was active last, on a clock of its own; greater is later, 0 is never.
    std::uint64_t lastActive = 0;

    [[nodiscard]] bool isOnDesktop(std::uint32_t wanted) const noexcept {
        return desktop.value_or(wanted) == wanted;
    }

    bool operator==(const ClientWindow&) const = default;
};

}
