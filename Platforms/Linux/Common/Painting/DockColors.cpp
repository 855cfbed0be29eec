#include "Painting/DockColors.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::xdg {
namespace {

/// Opacity of the glass, 0 to 255. Without blur, detail behind the glass competes with the icons,
/// so it is more opaque.
struct Cover {
    int glassTop;
    int glassBottom;
    int label;
};

Cover cover(bool isDark, Backdrop backdrop) {
    switch (backdrop) {
    case Backdrop::opaque:
        return {255, 255, 255};
    case Backdrop::translucent:
        return isDark ? Cover{172, 188, 222} : Cover{176, 160, 232};
    case Backdrop::blurred:
        return isDark ? Cover{120, 138, 186} : Cover{132, 112, 196};
    }
    return {255, 255, 255};
}

QColor faded(QColor colour, int alpha) {
    colour.setAlpha(alpha);
    return colour;
}

DockColors light(const Cover& cover) {
    return {
        .glassTop = faded({248, 249, 251}, cover.glassTop),
        .glassBottom = faded({232, 235, 240}, cover.glassBottom),
        .outline = faded({0, 0, 0}, 42),
        .highlightTop = faded({255, 255, 255}, 200),
        .highlightBottom = faded({255, 255, 255}, 96),
        .labelGlass = faded({248, 249, 251}, cover.label),
        .text = faded({20, 20, 24}, 232),
        .dot = faded({20, 20, 24}, 150),
        .separator = faded({0, 0, 0}, 52),
        .handle = {20, 20, 24},
    };
}

DockColors dark(const Cover& cover) {
    return {
        .glassTop = faded({54, 56, 62}, cover.glassTop),
        .glassBottom = faded({32, 33, 38}, cover.glassBottom),
        .outline = faded({0, 0, 0}, 96),
        .highlightTop = faded({255, 255, 255}, 58),
        .highlightBottom = faded({255, 255, 255}, 26),
        .labelGlass = faded({44, 45, 51}, cover.label),
        .text = faded({255, 255, 255}, 235),
        .dot = faded({255, 255, 255}, 165),
        .separator = faded({255, 255, 255}, 56),
        .handle = {255, 255, 255},
    };
}

/// Thickness of a fine line: one pixel up to double density.
double hairline(double scale) {
    return std::max(1.0, std::floor(scale / 2));
}

}

GlassLook DockColors::glass(double radius, double scale) const {
    return {.radius = radius,
            .line = hairline(scale),
            .top = glassTop,
            .bottom = glassBottom,
            .outline = outline,
            .highlightTop = highlightTop,
            .highlightBottom = highlightBottom};
}

GlassLook DockColors::label(double radius, double scale) const {
    GlassLook look = glass(radius, scale);
    look.top = labelGlass;
    look.bottom = labelGlass;
    return look;
}

DockColors DockColors::of(bool isDark, Backdrop backdrop) {
    const Cover covered = cover(isDark, backdrop);
    return isDark ? dark(covered) : light(covered);
}

}
