/// One client window of the window manager, as its properties describe it.
#pragma once

#include "Applications/ClientWindows/WindowID.hpp"
#include "Applications/Identity/WindowTraits.hpp"

#include <cstdint>
#include <optional>

namespace vireline::xdg {

struct ClientWindow {
    WindowID id = WindowID::none;
    WindowTraits traits;
    /// The owner's process on this machine; 0 if unknown.
    std::int32_t processIdentifier = 0;
    /// Whether it is a normal window or a dialog that appears in taskbars; such a window makes its
    /// program a running app.
    bool isOrdinary = false;
    /// Whether it is a dialog, subordinate to another window or to its program.
    bool isDialog = false;
    /// Iconified or otherwise hidden.
    bool isHidden = false;
    /// It asks for the user's attention.
    bool isUrgent = false;
    /// nullopt for a window that is on every desktop or does not say.
    std::optional<std::uint32_t> desktop;
    /// Activation counter value when it was last active; 0 for never, greater is later.
    std::uint64_t lastActive = 0;

    [[nodiscard]] bool isOnDesktop(std::uint32_t wanted) const noexcept {
        return desktop.value_or(wanted) == wanted;
    }

    bool operator==(const ClientWindow&) const = default;
};

}
