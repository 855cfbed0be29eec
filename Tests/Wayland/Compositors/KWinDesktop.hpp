/// KWin without a screen: two outputs side by side, and programs with windows on them.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Support/TemporaryFolder.hpp"
#include "VirtualDesktop/Buses/BusClient.hpp"
#include "VirtualDesktop/Compositors/KWinProcess.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

/// Each output has 1280 x 720 pixels.
class KWinDesktop {
public:
    /// KWin lists windows only for the programs of the desktop entries in the data folder
    /// `entries`; without a folder, for all programs.
    explicit KWinDesktop(const std::filesystem::path& entries = {});

    [[nodiscard]] static bool isInstalled();

    [[nodiscard]] std::string display() const { return kwin_->display(); }
    [[nodiscard]] const std::string& bus() const { return kwin_->bus(); }
    [[nodiscard]] pid_t process() const { return kwin_->process().pid(); }

    /// Runs the test program.
    desktop::ChildProcess& run(std::vector<std::string> arguments);
    void endPrograms() { programs_.clear(); }

    /// What KWin itself says of a window.
    struct Window {
        Rect frame;
        bool isMinimised = false;
        bool isMaximised = false;
        std::string desktop;
    };
    /// nullopt if there is no such window.
    [[nodiscard]] std::optional<Window> window(const std::string& uuid) const;

    /// Runs a script in KWin.
    void script(const std::string& text);

private:
    test::TemporaryFolder folder_;
    std::optional<desktop::KWinProcess> kwin_;
    std::optional<desktop::BusClient> client_;
    std::vector<std::unique_ptr<desktop::ChildProcess>> programs_;
    int scripts_ = 0;
};

}
