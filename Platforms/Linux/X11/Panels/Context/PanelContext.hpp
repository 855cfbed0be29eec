/// What the windows of all docks share.
#pragma once

namespace vireline::xdg {
class Appearance;
}

namespace vireline::x11 {

class DesktopWatch;
class DrawingConnection;
class RandrScreens;
class X11Connection;

/// Everything in it must outlive them.
struct PanelContext {
    X11Connection& connection;
    const DrawingConnection& drawing;
    RandrScreens& screens;
    DesktopWatch& desktop;
    xdg::Appearance& appearance;
};

}
