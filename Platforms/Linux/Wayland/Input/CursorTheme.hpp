/// Reads single images of cursor themes. libwayland-cursor reads all of a theme, hundreds of files,
/// and keeps them in memory; docks need one.
#pragma once

#include <QImage>
#include <QPoint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::wayland {

struct CursorImage {
    /// With premultiplied colours.
    QImage picture;
    /// The pixel that points.
    QPoint hotspot;

    bool operator==(const CursorImage&) const = default;
};

namespace CursorTheme {

/// The image made for the size nearest to `size`, from the content of a file in the format of
/// Xcursor(3); of an animation, its first frame. nullopt if the file is damaged.
[[nodiscard]] std::optional<CursorImage> parse(std::string_view content, int size);

/// The ordinary arrow from the theme or one that it inherits from. `folders` are those in which
/// themes are installed. nullopt if there is none.
[[nodiscard]] std::optional<CursorImage> arrow(const std::vector<std::string>& folders,
                                               const std::string& theme, int size);

}
}
