/// Fallback images for when no icon theme has the icon.
#pragma once

#include <QImage>

namespace vireline::xdg::DrawnIcons {

/// A plain tile that stands for any application. `side` is in pixels.
[[nodiscard]] QImage application(int side);

/// A waste bin.
[[nodiscard]] QImage trash(int side);

}
