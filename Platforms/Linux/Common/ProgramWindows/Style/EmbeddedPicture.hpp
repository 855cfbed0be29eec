/// The drawings embedded in the executable.
#pragma once

#include <QImage>
#include <QString>

namespace vireline::xdg::EmbeddedPicture {

/// Renders the drawing at `path`, such as "symbols/pin.svg", as a square of `side` pixels;
/// transparent if there is no such drawing.
[[nodiscard]] QImage render(const QString& path, int side);

}
