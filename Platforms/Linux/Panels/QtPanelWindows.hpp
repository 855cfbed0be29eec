/// Creates the docks' windows and owns what they share.
#pragma once

#include "Panels/DesktopWatch.hpp"
#include "Platform/PanelWindow.hpp"
#include "X11/DrawingConnection.hpp"

#include <QTimer>

namespace vireline::x11 {

class Appearance;
class RandrScreens;
class X11Connection;

class QtPanelWindows final : public PanelWindows {
public:
    QtPanelWindows(X11Connection& connection, RandrScreens& screens, Appearance& appearance);

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

private:
    X11Connection& connection_;
    DrawingConnection drawing_;
    RandrScreens& screens_;
    DesktopWatch desktop_;
    Appearance& appearance_;
    QTimer fontIsDue_;
};

}
