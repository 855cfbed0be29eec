/// The position of a popup, in the form of the protocol.
#pragma once

#include "Connection/Proxies.hpp"

#include <QPoint>
#include <QRect>
#include <QSize>

namespace vireline::wayland::PopupPosition {

/// A popup of that size with its top-left corner at `corner`, moved as little as necessary if it
/// would not fit on the display. `parent` is the surface that it belongs to; both are in the same
/// coordinates.
[[nodiscard]] Proxy<xdg_positioner> make(xdg_wm_base& base, QSize size, const QRect& parent,
                                         QPoint corner);

}
