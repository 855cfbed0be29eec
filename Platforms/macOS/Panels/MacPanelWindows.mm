#include "Panels/MacPanelWindows.hpp"

#include "Panels/MacPanelWindow.hpp"

namespace vireline::macos {

std::unique_ptr<PanelWindow> MacPanelWindows::makePanel(std::uint32_t displayID, const Rect& frame,
                                                        PanelWindowListener& listener) {
    return std::make_unique<MacPanelWindow>(displayID, frame, listener);
}

}
