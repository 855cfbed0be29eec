#include "Panels/QtPanelWindows.hpp"

#include "Panels/QtPanelWindow.hpp"

namespace vireline::x11 {

QtPanelWindows::QtPanelWindows(X11Connection& connection, RandrScreens& screens,
                               const std::string& widgetTheme)

    : connection_(connection)
    , drawing_(connection)
    , screens_(screens)
    , desktop_(connection)
    , appearance_(widgetTheme) {}

std::unique_ptr<PanelWindow> QtPanelWindows::makePanel(std::uint32_t displayID, const Rect& frame,
                                                       PanelWindowListener& listener) {
    return std::make_unique<QtPanelWindow>(
        PanelContext{connection_, drawing_, screens_, desktop_, appearance_}, displayID, frame,
        listener);
}

}
