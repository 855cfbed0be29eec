/// Loads image files, mainly PNG and SVG, as square images. Returns nullopt for files that are
/// damaged or far too large.
#pragma once

#include <QImage>
#include <optional>
#include <string>

namespace vireline::xdg::ImageFile {

/// The image in the file at `path`, scaled to fit a transparent square of `side` pixels.
[[nodiscard]] std::optional<QImage> load(const std::string& path, int side);

/// `picture`, scaled to fit a transparent square of `side` pixels with its proportions kept.
[[nodiscard]] QImage fitted(const QImage& picture, int side);

}
