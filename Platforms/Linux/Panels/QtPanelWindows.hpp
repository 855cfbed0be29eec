/// Creates the docks' windows and owns what they share.
#pragma once

#include "Panels/DesktopWatch.hpp"
#include "Platform/PanelWindow.hpp"
#include "Toolkit/Appearance.hpp"
#include "X11/DrawingConnection.hpp"

#include <QTimer>
#include <string>

namespace vireline::x11 {

class RandrScreens;
class X11Connection;

class QtPanelWindows final : public PanelWindows {
public:
    /// `widgetTheme` is the name of the desktop's widget theme; empty if unknown.
    QtPanelWindows(X11Connection& connection, RandrScreens& screens,
                   const std::string& widgetTheme);

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

    /// The desktop's light or dark appearance.
    [[nodiscard]] Appearance& appearance() noexcept { return appearance_; }

private:
    X11Connection& connection_;
    DrawingConnection drawing_;
    RandrScreens& screens_;
    DesktopWatch desktop_;
    Appearance appearance_;
    QTimer fontIsDue_;
};

}
