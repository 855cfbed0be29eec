/// Turns picture files, PNG and SVG above all, into square pictures. Any file can be damaged or far
/// too large; such a one gives nothing.
#pragma once

#include <QImage>
#include <optional>
#include <string>

namespace vireline::x11::ImageFile {

/// The picture in the file at `path`, fitted into a transparent square of `side` pixels.
[[nodiscard]] std::optional<QImage> load(const std::string& path, int side);

/// `picture` fitted into a transparent square of `side` pixels, at its own proportions.
[[nodiscard]] QImage fitted(const QImage& picture, int side);

}
