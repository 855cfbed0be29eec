/// Dock windows with a witness between them and the kit, which forwards everything to the
/// platform's own windows and records the latest state of each.
#pragma once

#include "Platform/PanelWindow.hpp"

#include <vector>

namespace vireline::storm {

/// What the program requested of one window.
struct ToldWindow {
    std::uint32_t display = 0;
    Rect frame;
    /// The overhang at the time of the last frame.
    Overhang overhang;
    Rect hosted;
    Scene scene;
    bool isShown = false;
};

class WitnessedPanels final : public PanelWindows {
public:
    explicit WitnessedPanels(PanelWindows& port) : port_(port) {}

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

    /// The windows that currently exist.
    [[nodiscard]] const std::vector<const ToldWindow*>& windows() const noexcept {
        return windows_;
    }

private:
    PanelWindows& port_;
    std::vector<const ToldWindow*> windows_;
};

}
