#include "Panels/AppKitPanelWindows.hpp"

#include "Panels/AppKitPanelWindow.hpp"

namespace vireline::macos {

std::unique_ptr<PanelWindow> AppKitPanelWindows::makePanel(std::uint32_t displayID,
                                                           const Rect& frame,
                                                           PanelWindowListener& listener) {
    return std::make_unique<AppKitPanelWindow>(displayID, frame, listener);
}

}
