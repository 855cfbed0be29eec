/// What an icon theme says of itself: its folders, for which sizes they are, and whose icons it
/// falls back on.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

/// A folder of a theme and the sizes, in pixels, that its pictures are made for.
struct IconFolder {
    /// Relative to the theme's.
    std::string path;
    int size = 0;
    int smallest = 0;
    int largest = 0;
    /// Its place in the index: of equally good folders the first counts.
    std::size_t order = 0;

    bool operator==(const IconFolder&) const = default;
};

struct IconThemeIndex {
    std::vector<IconFolder> folders;
    /// Names of themes, the nearest first.
    std::vector<std::string> parents;

    bool operator==(const IconThemeIndex&) const = default;
};

namespace IconThemeIndexes {

/// From the text of an index.theme. Folders that say no sensible size, or lead out of the theme,
/// are left out.
[[nodiscard]] IconThemeIndex parse(std::string_view text);

/// Whether a picture for `side` pixels is better taken from the first folder than from the second:
/// one made for that size before larger ones, the nearest first, before smaller ones.
[[nodiscard]] bool isBetter(const IconFolder& first, const IconFolder& second, int side);

}
}
