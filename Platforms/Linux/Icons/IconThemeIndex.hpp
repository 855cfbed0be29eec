/// What an icon theme says of itself: its folders, for which sizes they are, and whose icons it
/// falls back on.
#pragma once

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

/// The folders in the order in which a picture for `side` pixels is best taken from them: made for
/// that size, then larger ones, the nearest first, then smaller ones.
[[nodiscard]] std::vector<IconFolder> bestFirst(std::vector<IconFolder> folders, int side);

}
}
