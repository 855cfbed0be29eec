/// Parses an icon theme's index: its folders, the sizes they are for, and the themes that it
/// inherits from.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

/// A folder of a theme and the range of sizes, in pixels, for which its images are made.
struct IconFolder {
    /// Relative to the theme's folder.
    std::string path;
    int size = 0;
    int smallest = 0;
    int largest = 0;
    /// Position in the index: of equally good folders the first wins.
    std::size_t order = 0;

    bool operator==(const IconFolder&) const = default;
};

struct IconThemeIndex {
    std::vector<IconFolder> folders;
    /// Names of the parent themes, in order.
    std::vector<std::string> parents;

    bool operator==(const IconThemeIndex&) const = default;
};

namespace IconThemeIndexes {

/// Parses the text of an index.theme. Folders without a sensible size or outside the theme are
/// skipped.
[[nodiscard]] IconThemeIndex parse(std::string_view text);

/// Whether the first folder is the better source for an image of `side` pixels: exact size first,
/// then the nearest larger size, then the nearest smaller one.
[[nodiscard]] bool isBetter(const IconFolder& first, const IconFolder& second, int side);

}
}
