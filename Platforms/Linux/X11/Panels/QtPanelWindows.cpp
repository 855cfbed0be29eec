#include "Panels/QtPanelWindows.hpp"

#include "Painting/LabelPainter.hpp"
#include "Panels/QtPanelWindow.hpp"

#include <chrono>

namespace vireline::x11 {
namespace {

/// By then the docks are visible, but the user has hardly pointed at one yet.
constexpr std::chrono::milliseconds afterStart{400};

}

QtPanelWindows::QtPanelWindows(X11Connection& connection, RandrScreens& screens,
                               xdg::Appearance& appearance)
    : connection_(connection)
    , drawing_(connection)
    , screens_(screens)
    , desktop_(connection)
    , appearance_(appearance) {
    QObject::connect(&fontIsDue_, &QTimer::timeout, &xdg::LabelPainter::prepareFont);
    fontIsDue_.setSingleShot(true);
    fontIsDue_.start(afterStart);
}

std::unique_ptr<PanelWindow> QtPanelWindows::makePanel(std::uint32_t displayID, const Rect& frame,
                                                       PanelWindowListener& listener) {
    return std::make_unique<QtPanelWindow>(
        PanelContext{connection_, drawing_, screens_, desktop_, appearance_}, displayID, frame,
        listener);
}

}
