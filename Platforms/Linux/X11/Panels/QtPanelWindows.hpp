/// Creates the docks' windows and owns what they share.
#pragma once

#include "Connection/DrawingConnection.hpp"
#include "Panels/Context/DesktopWatch.hpp"
#include "Platform/PanelWindow.hpp"

#include <QTimer>

namespace vireline::xdg {
class Appearance;
}

namespace vireline::x11 {

class RandrScreens;
class X11Connection;

class QtPanelWindows final : public PanelWindows {
public:
    QtPanelWindows(X11Connection& connection, RandrScreens& screens, xdg::Appearance& appearance);

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

private:
    X11Connection& connection_;
    DrawingConnection drawing_;
    RandrScreens& screens_;
    DesktopWatch desktop_;
    xdg::Appearance& appearance_;
    QTimer fontIsDue_;
};

}
