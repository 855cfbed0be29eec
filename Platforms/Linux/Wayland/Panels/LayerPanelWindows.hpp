/// Creates the docks' windows on Wayland and owns what they share.
#pragma once

#include "Panels/Surfaces/DockContext.hpp"
#include "Platform/PanelWindow.hpp"

#include <QTimer>

namespace vireline::wayland {

class LayerPanelWindows final : public PanelWindows {
public:
    explicit LayerPanelWindows(const DockContext::Needs& needs);

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

private:
    DockContext context_;
    QTimer fontIsDue_;
};

}
