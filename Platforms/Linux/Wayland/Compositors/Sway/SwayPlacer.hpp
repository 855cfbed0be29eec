/// Moves windows through sway's IPC.
#pragma once

#include "Compositors/Sway/SwayConnection.hpp"
#include "Compositors/Sway/SwayTree.hpp"
#include "Compositors/WindowPlacer.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/RunLoop.hpp"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace vireline::wayland {

/// Windows are those of `SwayWindowList`. A window's new frame is corrected for half a second: sway
/// reverts it if the program has not yet drawn its previous size. Any change after that is
/// considered the user's.
class SwayPlacer final : public WindowPlacer, private NonCopyable {
public:
    SwayPlacer(std::string socket, RunLoop& runLoop);

    [[nodiscard]] bool isAvailable() override { return connection() != nullptr; }
    [[nodiscard]] Result<Rect> frame(xdg::WindowID window, double seconds) override;
    Result<void> move(xdg::WindowID window, Point corner, double seconds) override;
    Result<void> place(xdg::WindowID window, const Rect& frame, double seconds) override;

private:
    /// The command for a window as it is now; nullopt if nothing has to be done.
    using Command =
        std::function<std::optional<std::string>(const SwayWindow& window, const SwayTree& tree)>;

    /// The frame that a window is to keep.
    struct Goal {
        Rect frame;
        int checks = 0;
        Timer next;
    };

    void keep(xdg::WindowID window);
    void check(xdg::WindowID window);
    [[nodiscard]] SwayConnection* connection();
    [[nodiscard]] Result<std::string> request(SwayMessageType type, const std::string& text,
                                              double seconds);
    [[nodiscard]] Result<SwayTree> tree(double seconds);
    Result<void> run(xdg::WindowID window, double seconds, const Command& command);

    std::string socket_;
    RunLoop& runLoop_;
    std::map<xdg::WindowID, Goal> goals_;
    /// Null if it broke; opened again when needed.
    std::unique_ptr<SwayConnection> connection_;
    Lifetime lifetime_;
};

}
