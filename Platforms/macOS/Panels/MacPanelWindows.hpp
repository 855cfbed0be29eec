/// Creates the docks' windows.
#pragma once

#include "Platform/PanelWindow.hpp"

namespace vireline::macos {

class MacPanelWindows final : public PanelWindows {
public:
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;
};

}
