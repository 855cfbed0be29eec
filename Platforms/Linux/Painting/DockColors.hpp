/// The colours of a dock: light or dark, over a blurred background, a plain one, or none at all.
#pragma once

#include "Painting/Glass.hpp"

#include <QColor>

namespace vireline::x11 {

/// What lies behind the glass.
enum class Backdrop {
    opaque,      ///< nothing shines through: there is no compositor
    translucent, ///< the desktop as it is
    blurred,     ///< the desktop out of focus
};

struct DockColors {
    /// The glass, from its top to its bottom.
    QColor glassTop;
    QColor glassBottom;
    /// The darker line around it, and the fine light one inside that.
    QColor outline;
    QColor highlightTop;
    QColor highlightBottom;
    /// The glass under text, which has to be read.
    QColor labelGlass;
    QColor text;
    QColor dot;
    QColor separator;
    QColor handle;

    bool operator==(const DockColors&) const = default;

    /// The strip's glass; `radius` in pixels, at that many pixels a point.
    [[nodiscard]] GlassLook glass(double radius, double scale) const;
    /// A label's.
    [[nodiscard]] GlassLook label(double radius, double scale) const;

    [[nodiscard]] static DockColors of(bool isDark, Backdrop backdrop);
};

}
