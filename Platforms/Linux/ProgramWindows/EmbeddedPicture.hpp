/// The drawings that are part of the program itself.
#pragma once

#include <QImage>
#include <QString>

namespace vireline::x11::EmbeddedPicture {

/// The drawing at `path`, such as "symbols/pin.svg", as a square of `side` pixels; transparent
/// where there is no such drawing.
[[nodiscard]] QImage render(const QString& path, int side);

}
