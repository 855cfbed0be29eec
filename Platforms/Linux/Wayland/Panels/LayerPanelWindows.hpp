/// Creates the docks' windows on Wayland and owns what they share.
#pragma once

#include "Panels/LayerShellContext.hpp"
#include "Platform/PanelWindow.hpp"

#include <QTimer>

namespace vireline::wayland {

class LayerPanelWindows final : public PanelWindows {
public:
    /// See `LayerShellContext`.
    LayerPanelWindows(WaylandConnection& connection, WaylandScreens& screens,
                      xdg::Appearance& appearance);

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

private:
    LayerShellContext context_;
    QTimer fontIsDue_;
};

}
