/// sway without a screen: two outputs side by side, and programs with windows on them.
#pragma once

#include "Compositors/Sway/SwayTree.hpp"
#include "Support/TemporaryFolder.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

/// Each output has 1280 x 720 pixels.
class SwayDesktop {
public:
    /// Throws if sway does not start.
    SwayDesktop();
    ~SwayDesktop();

    [[nodiscard]] const std::string& socket() const noexcept { return socket_; }
    /// The socket that Wayland clients connect to.
    [[nodiscard]] std::string display() const;
    [[nodiscard]] pid_t process() const { return sway_->pid(); }

    /// Runs the test program.
    desktop::ChildProcess& run(std::vector<std::string> arguments);
    /// Closes all programs, and the workspaces that are no longer shown with them.
    void closeAll();

    /// What sway itself says at present.
    [[nodiscard]] SwayTree tree() const;
    /// The windows of programs with that ID, the oldest first.
    [[nodiscard]] std::vector<SwayWindow> windows(const std::string& appID) const;
    /// Whether the program that was started last has drawn its window in the size that sway gave
    /// it. Until then, sway may still adopt another.
    [[nodiscard]] bool isSettled() const;
    /// Whether sway accepts the command.
    bool command(const std::string& text) const;

private:
    [[nodiscard]] std::filesystem::path sizes() const {
        return folder_.path() / ("sizes-" + std::to_string(started_));
    }

    test::TemporaryFolder folder_;
    std::string socket_;
    std::optional<desktop::ChildProcess> sway_;
    std::vector<std::unique_ptr<desktop::ChildProcess>> programs_;
    int started_ = 0;
};

}
