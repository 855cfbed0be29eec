/// What sway itself says and does through its IPC socket. Independent of the program's own client
/// of that socket.
#pragma once

#include "VirtualDesktop/Screen/PixelGeometry.hpp"

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

class SwayControl {
public:
    struct Window {
        std::uint32_t id = 0;
        std::string appID;
        std::string title;
        pid_t process = 0;
        /// In the layout's coordinates.
        PixelRect frame;
        bool isFocused = false;
        bool isUrgent = false;
        /// Whether it can be seen: on a workspace that is shown.
        bool isVisible = false;
    };

    SwayControl() = default;
    explicit SwayControl(std::string socket) : socket_(std::move(socket)) {}

    /// Throws if sway refuses it.
    void command(const std::string& text) const;

    /// Ordinary windows, the oldest first. Empty if sway is gone.
    [[nodiscard]] std::vector<Window> windows() const;

    /// Whether the keyboard belongs to a surface of a panel or menu instead of windows and
    /// workspaces.
    [[nodiscard]] bool isKeyboardTaken() const;

private:
    /// The reply; empty if sway is gone.
    [[nodiscard]] std::string request(std::uint32_t type, std::string_view text) const;

    std::string socket_;
};

}
