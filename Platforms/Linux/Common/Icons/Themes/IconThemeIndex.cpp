#include "Icons/Themes/IconThemeIndex.hpp"

#include "Text/IniText.hpp"

#include <charconv>
#include <cstdlib>
#include <optional>
#include <tuple>

namespace vireline::xdg::IconThemeIndexes {
namespace {

constexpr std::string_view themeGroup = "Icon Theme";
/// Pixels; also prevents overflow in sums of sizes.
constexpr int maximumSize = 4096;
constexpr int maximumScale = 8;
/// Smaller images are drawn for toolbars. At double scale they have as many pixels as launcher
/// icons, but not their detail.
constexpr int smallestDoubled = 32;

std::optional<int> number(const IniText& text, std::string_view group, std::string_view key) {
    const auto digits = text.value(group, key);
    if (!digits)
        return std::nullopt;
    int value = 0;
    const auto result = std::from_chars(digits->data(), digits->data() + digits->size(), value);
    const bool isWhole = result.ec == std::errc{} && result.ptr == digits->data() + digits->size();
    return isWhole && value > 0 && value <= maximumSize ? std::optional{value} : std::nullopt;
}

std::optional<IconFolder> folder(const IniText& text, std::string_view path) {
    const auto size = number(text, path, "Size");
    const int scale = number(text, path, "Scale").value_or(1);
    if (!size || scale > maximumScale || (scale > 1 && *size < smallestDoubled) ||
        path.starts_with('/') || path.contains(".."))
        return std::nullopt;
    const int pixels = *size * scale;
    IconFolder folder{std::string{path}, pixels, pixels, pixels};
    const auto type = text.value(path, "Type").value_or("Threshold");
    if (type == "Scalable") {
        folder.smallest = number(text, path, "MinSize").value_or(*size) * scale;
        folder.largest = number(text, path, "MaxSize").value_or(*size) * scale;
    } else if (type == "Threshold") {
        const int threshold = number(text, path, "Threshold").value_or(2) * scale;
        folder.smallest -= threshold;
        folder.largest += threshold;
    }
    return folder;
}

/// Lower is better: folders made for `side` come first, then those with larger images, then those
/// with smaller ones, each by distance.
auto rank(const IconFolder& folder, int side) {
    if (folder.smallest <= side && side <= folder.largest)
        return std::tuple{0, std::abs(folder.size - side), folder.order};
    if (folder.smallest > side)
        return std::tuple{1, folder.smallest - side, folder.order};
    return std::tuple{2, side - folder.largest, folder.order};
}

}

IconThemeIndex parse(std::string_view text) {
    const IniText lines{text};
    IconThemeIndex index;
    for (const std::string_view key : {"Directories", "ScaledDirectories"}) {
        for (const std::string_view path : lines.list(themeGroup, key)) {
            if (auto found = folder(lines, path)) {
                found->order = index.folders.size();
                index.folders.push_back(*std::move(found));
            }
        }
    }
    for (const std::string_view parent : lines.list(themeGroup, "Inherits")) {
        index.parents.emplace_back(parent);
    }
    return index;
}

bool isBetter(const IconFolder& first, const IconFolder& second, int side) {
    return rank(first, side) < rank(second, side);
}

}
