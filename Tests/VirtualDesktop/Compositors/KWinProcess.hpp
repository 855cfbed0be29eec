/// The compositor KWin without a GPU, drawing to memory or into windows of an X server.
#pragma once

#include "VirtualDesktop/Processes/ChildProcess.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class KWinProcess {
public:
    struct Options {
        /// The home folder that KWin sees, and where its other files are.
        std::filesystem::path folder;
        /// The X server on which it opens a window for each output; none if empty.
        std::string xDisplay{};
        int outputs = 1;
        int width = 1280;
        int height = 720;
        /// Whether every program may use everything that it offers. Otherwise it looks for their
        /// desktop entries in `dataFolders`.
        bool permitsEverything = true;
        std::string dataFolders{};
        /// The session bus; one of its own if empty.
        std::string bus{};
    };

    /// Throws if it does not start.
    explicit KWinProcess(const Options& options);

    /// What programs need to find it.
    [[nodiscard]] Environment environment() const;
    /// The socket that Wayland clients connect to.
    [[nodiscard]] std::string display() const { return folder_ / "wayland-kwin"; }
    [[nodiscard]] const std::string& bus() const noexcept { return address_; }
    [[nodiscard]] const ChildProcess& process() const { return *kwin_; }

private:
    void startBus();

    std::filesystem::path folder_;
    std::string address_;
    std::optional<ChildProcess> bus_;
    std::optional<ChildProcess> kwin_;
};

}
