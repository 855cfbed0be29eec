/// The compositor sway in windows of the virtual X server: one window for each output, at the
/// output's place in the layout, so that the X server's pointer, keyboard and pixels are those of
/// the Wayland session.
#pragma once

#include "VirtualDesktop/ChildProcess.hpp"
#include "VirtualDesktop/DockWindows.hpp"
#include "VirtualDesktop/Monitors.hpp"
#include "VirtualDesktop/Picture.hpp"
#include "VirtualDesktop/SwayControl.hpp"
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
                const std::vector<Monitor>& monitors, std::map<std::string, double> scales);

    /// What programs need to find it.
    [[nodiscard]] Environment environment() const;

    /// Adds, removes, moves and resizes outputs, without touching unchanged ones.
    void setMonitors(const std::vector<Monitor>& monitors);

    /// The display IDs by monitor, which the program derives from outputs' names.
    [[nodiscard]] std::map<std::string, std::uint32_t> displayIDs() const;

    /// The name of the output that is this monitor.
    [[nodiscard]] std::string outputOf(const std::string& monitor) const;

    /// The docks that can be seen: what differs from the empty desktop, on each output. Their
    /// windows are those of the outputs.
    [[nodiscard]] std::vector<DockWindow> shown() const;

    /// The program's popup menus that can be seen, by their colour.
    [[nodiscard]] std::vector<PixelRect> menus() const;

    /// A place on the screen in sway's coordinates.
    [[nodiscard]] PixelPoint toLayout(PixelPoint place) const;

    /// Where the layout begins on the screen.
    [[nodiscard]] PixelPoint origin() const noexcept { return origin_; }

    /// Ordinary windows, the oldest first, with frames in pixels.
    [[nodiscard]] std::vector<SwayControl::Window> windows() const;

    [[nodiscard]] const SwayControl& control() const noexcept { return control_; }

    /// Areas with something that is neither a dock nor a window.
    void ignore(const PixelRect& area) { ignored_.push_back(area); }
    void ignoreNothing() { ignored_.clear(); }

    /// Ends it abruptly.
    void kill() const;

private:
    struct Output {
        std::string name;
        xcb_window_t window = XCB_NONE;
        Monitor monitor;
    };

    void start(const std::string& display, std::size_t outputs);
    [[nodiscard]] std::optional<Output> newOutput() const;
    void place(Output& output, const Monitor& monitor) const;
    void close(const Output& output) const;
    void takeKeyboard() const;
    [[nodiscard]] double scale(const Monitor& monitor) const;
    /// The output's frame in sway's coordinates.
    [[nodiscard]] PixelRect frameOf(const Output& output) const;
    /// What the output shows, with windows and what is ignored in the colour of the background.
    [[nodiscard]] Picture emptied(const Output& output) const;

    const XClient& client_;
    std::filesystem::path folder_;
    /// Pixels per point, by monitor, where that is not 1.
    std::map<std::string, double> scales_;
    std::string socket_;
    SwayControl control_;
    /// The corner of the first monitor at the start, which thus counts as primary. Other monitors
    /// may have negative coordinates in sway.
    PixelPoint origin_;
    std::vector<PixelRect> ignored_;
    std::optional<ChildProcess> sway_;
    std::vector<Output> outputs_;
};

}
