/// A headless X server with its own display number: Xvfb, or Xorg with a driver that has outputs
/// but no hardware.
#pragma once

#include "VirtualDesktop/Processes/ChildProcess.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class XServer {
public:
    struct Options {
        int width = 0;
        int height = 0;
        /// Whether it supports RandR.
        bool randr = true;
        /// Whether it has an output for each monitor, like graphics cards. Xvfb has a single one.
        bool outputs = false;
        /// The file for its messages.
        std::filesystem::path errors;
    };

    /// Returns once clients can connect; throws if it does not start.
    explicit XServer(const Options& options);

    void stop() { process_.reset(); }

    [[nodiscard]] pid_t pid() const { return process_ ? process_->pid() : 0; }

    /// For example ":7".
    [[nodiscard]] const std::string& display() const noexcept { return display_; }

private:
    /// Starts it with this display number; returns whether clients can connect.
    [[nodiscard]] bool start(const Options& options, int number);

    std::optional<ChildProcess> process_;
    std::string display_;
};

}
