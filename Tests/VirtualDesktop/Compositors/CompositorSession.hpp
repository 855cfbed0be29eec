/// A Wayland compositor in windows of the virtual X server: one window for each output, at the
/// output's place in the layout, so that the X server's pointer, keyboard and pixels are those of
/// the Wayland session.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"
#include "VirtualDesktop/Screen/Colour.hpp"
#include "VirtualDesktop/Screen/DockWindow.hpp"
#include "VirtualDesktop/Screen/Monitors.hpp"
#include "VirtualDesktop/Screen/Picture.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

class CompositorSession : private NonCopyable {
public:
    virtual ~CompositorSession() = default;

    /// What programs need to find it.
    [[nodiscard]] virtual Environment environment() const = 0;

    /// Adds, removes, moves and resizes outputs, without touching unchanged ones.
    virtual void setMonitors(const std::vector<Monitor>& monitors) = 0;

    /// The display IDs by monitor, which the program derives from outputs' names.
    [[nodiscard]] std::map<std::string, std::uint32_t> displayIDs() const;

    /// The name of the output that is this monitor.
    [[nodiscard]] std::string outputOf(const std::string& monitor) const;

    /// Where the layout begins on the screen.
    [[nodiscard]] virtual PixelPoint origin() const { return {}; }

    /// The docks that can be seen: what differs from the empty desktop, on each output. Their
    /// windows are those of the outputs.
    [[nodiscard]] std::vector<DockWindow> shown() const;

    /// The program's popup menus that can be seen, by their colour.
    [[nodiscard]] std::vector<PixelRect> menus() const;

    /// Areas with something that is neither a dock nor a window.
    void ignore(const PixelRect& area) { ignored_.push_back(area); }
    void ignoreNothing() { ignored_.clear(); }

    /// Ends it abruptly.
    virtual void kill() const = 0;

protected:
    struct Output {
        std::string name;
        xcb_window_t window = XCB_NONE;
        Monitor monitor;
    };

    /// The colour of the empty desktop.
    CompositorSession(const XClient& client, Colour background)
        : client_(client), background_(background) {}

    [[nodiscard]] const XClient& client() const noexcept { return client_; }
    [[nodiscard]] std::vector<Output>& outputs() noexcept { return outputs_; }
    [[nodiscard]] const std::vector<Output>& outputs() const noexcept { return outputs_; }

    /// The frames of visible windows, which are not taken for docks; none if the compositor does
    /// not tell them.
    [[nodiscard]] virtual std::vector<PixelRect> windowFrames() const { return {}; }

    /// The window of an output that is not among `outputs`, and its title without this beginning.
    [[nodiscard]] std::optional<Output> newOutput(std::string_view titleBeginning) const;

    /// Whether the output has the colour of the empty desktop as far as its corner.
    [[nodiscard]] bool showsBackground(const Output& output) const;

    /// Puts the output's window at the monitor's place and gives it its size.
    void placeWindow(Output& output, const Monitor& monitor) const;

private:
    /// What the output shows, with windows and what is ignored in the colour of the background.
    [[nodiscard]] Picture emptied(const Output& output) const;

    const XClient& client_;
    Colour background_;
    std::vector<Output> outputs_;
    std::vector<PixelRect> ignored_;
};

}
