#include "Panels/LayerPanelWindows.hpp"

#include "Painting/LabelPainter.hpp"
#include "Panels/LayerPanelWindow.hpp"

#include <chrono>

namespace vireline::wayland {
namespace {

/// When the labels' font is loaded: the docks are visible by then, but the user has hardly pointed
/// at one yet.
constexpr std::chrono::milliseconds fontDelay{400};

}

LayerPanelWindows::LayerPanelWindows(const DockContext::Needs& needs) : context_(needs) {
    QObject::connect(&fontIsDue_, &QTimer::timeout, &xdg::LabelPainter::prepareFont);
    fontIsDue_.setSingleShot(true);
    fontIsDue_.start(fontDelay);
}

std::unique_ptr<PanelWindow> LayerPanelWindows::makePanel(std::uint32_t displayID,
                                                          const Rect& frame,
                                                          PanelWindowListener& listener) {
    return std::make_unique<LayerPanelWindow>(context_, displayID, frame, listener);
}

}
