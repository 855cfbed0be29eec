/// The compositor sway in windows of the virtual X server: one window for each output, at the
/// output's place in the layout, so that the X server's pointer, keyboard and pixels are those of
/// the Wayland session.
#pragma once

#include "VirtualDesktop/ChildProcess.hpp"
#include "VirtualDesktop/DockWindows.hpp"
#include "VirtualDesktop/Monitors.hpp"
#include "VirtualDesktop/XClient.hpp"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class SwaySession {
public:
    /// Starts it with these outputs. Its files are in `folder`. Throws if it does not start.
    SwaySession(const XClient& client, const std::string& display, std::filesystem::path folder,
                const std::vector<Monitor>& monitors);

    /// What programs need to find it.
    [[nodiscard]] Environment environment() const;

    /// Adds, removes, moves and resizes outputs, without touching unchanged ones.
    void setMonitors(const std::vector<Monitor>& monitors);

    /// The display IDs by monitor, which the program derives from outputs' names.
    [[nodiscard]] std::map<std::string, std::uint32_t> displayIDs() const;

    /// The docks that can be seen: what differs from the empty desktop, on each output. Their
    /// windows are those of the outputs.
    [[nodiscard]] std::vector<DockWindow> shown() const;

    /// Ends it abruptly.
    void kill() const;

private:
    struct Output {
        std::string name;
        xcb_window_t window = XCB_NONE;
        Monitor monitor;
    };

    void start(const std::string& display, std::size_t outputs);
    void command(const std::vector<std::string>& words) const;
    [[nodiscard]] std::optional<Output> newOutput() const;
    void place(Output& output, const Monitor& monitor) const;
    void close(const Output& output) const;

    const XClient& client_;
    std::filesystem::path folder_;
    std::string socket_;
    std::optional<ChildProcess> sway_;
    std::vector<Output> outputs_;
};

}
