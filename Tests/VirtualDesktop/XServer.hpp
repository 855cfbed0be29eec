/// An X server without a screen, on a display number of its own: Xvfb, or Xorg on a driver that has
/// outputs but no hardware.
#pragma once

#include "VirtualDesktop/ChildProcess.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class XServer {
public:
    struct Options {
        int width = 0;
        int height = 0;
        /// Whether it offers RandR.
        bool randr = true;
        /// Whether it has an output for each monitor, as graphics cards do. Xvfb has a single one.
        bool outputs = false;
        /// Where its own messages go.
        std::filesystem::path errors;
    };

    /// Returns once clients can connect; throws when it does not start.
    explicit XServer(const Options& options);

    void stop() { process_.reset(); }

    [[nodiscard]] pid_t pid() const { return process_ ? process_->pid() : 0; }

    /// Such as ":7".
    [[nodiscard]] const std::string& display() const noexcept { return display_; }

private:
    /// Whether clients can connect to it under this display number.
    [[nodiscard]] bool start(const Options& options, int number);

    std::optional<ChildProcess> process_;
    std::string display_;
};

}
