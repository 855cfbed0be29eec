/// The compositor sway on the virtual X server.
#pragma once

#include "VirtualDesktop/Compositors/CompositorSession.hpp"
#include "VirtualDesktop/Compositors/SwayControl.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"
#include "VirtualDesktop/Screen/Monitors.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class SwaySession final : public CompositorSession {
public:
    /// Starts it with these outputs. Its files are in `folder`. Throws if it does not start.
    SwaySession(const XClient& client, const std::string& display, std::filesystem::path folder,
                const std::vector<Monitor>& monitors, std::map<std::string, double> scales);

    [[nodiscard]] Environment environment() const override;
    void setMonitors(const std::vector<Monitor>& monitors) override;
    [[nodiscard]] PixelPoint origin() const override { return origin_; }
    void kill() const override;

    /// A place on the screen in sway's coordinates.
    [[nodiscard]] PixelPoint toLayout(PixelPoint place) const;

    /// Ordinary windows, the oldest first, with frames in pixels.
    [[nodiscard]] std::vector<SwayControl::Window> windows() const;

    [[nodiscard]] const SwayControl& control() const noexcept { return control_; }

private:
    [[nodiscard]] std::vector<PixelRect> windowFrames() const override;
    void start(const std::string& display, std::size_t outputs);
    void place(Output& output, const Monitor& monitor) const;
    void close(const Output& output) const;
    void takeKeyboard() const;
    [[nodiscard]] double scale(const Monitor& monitor) const;
    /// The output's frame in sway's coordinates.
    [[nodiscard]] PixelRect frameOf(const Output& output) const;

    std::filesystem::path folder_;
    /// Pixels per point, by monitor, where that is not 1.
    std::map<std::string, double> scales_;
    std::string socket_;
    SwayControl control_;
    /// The corner of the first monitor at the start, which thus counts as primary. Other monitors
    /// may have negative coordinates in sway.
    PixelPoint origin_;
    std::optional<ChildProcess> sway_;
};

}
