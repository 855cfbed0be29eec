/// The colours of a dock: light or dark, over a blurred, sharp or missing background.
#pragma once

#include "Painting/Glass.hpp"

#include <QColor>

namespace vireline::xdg {

/// What is visible behind the glass.
enum class Backdrop {
    opaque,      ///< nothing, because there is no compositor
    translucent, ///< the desktop as it is
    blurred,     ///< the desktop, blurred
};

struct DockColors {
    /// The glass, from top to bottom.
    QColor glassTop;
    QColor glassBottom;
    /// The dark outer line, and the light line inside it.
    QColor outline;
    QColor highlightTop;
    QColor highlightBottom;
    /// The glass behind text, more opaque for legibility.
    QColor labelGlass;
    QColor text;
    QColor dot;
    QColor separator;
    QColor handle;
    QColor badge{208, 42, 42};
    QColor badgeText{255, 255, 255};
    QColor badgeOutline{255, 255, 255, 210};
    QColor progressGroove{20, 20, 24, 190};
    QColor progressFill{90, 160, 255};
    QColor mark{255, 138, 0};

    bool operator==(const DockColors&) const = default;

    /// The strip's glass; `radius` in pixels, `scale` in pixels per point.
    [[nodiscard]] GlassLook glass(double radius, double scale) const;
    /// The glass of a label.
    [[nodiscard]] GlassLook label(double radius, double scale) const;

    [[nodiscard]] static DockColors of(bool isDark, Backdrop backdrop);
};

}
