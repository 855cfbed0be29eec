#include "Icons/IconThemeIndex.hpp"

#include "Icons/IniText.hpp"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <tuple>

namespace vireline::x11::IconThemeIndexes {
namespace {

constexpr std::string_view themeGroup = "Icon Theme";
/// Pixels; also keeps sums of sizes far from overflow.
constexpr int maximumSize = 4096;
constexpr int maximumScale = 8;

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
    if (!size || scale > maximumScale || path.starts_with('/') || path.contains(".."))
        return std::nullopt;
    IconFolder folder{std::string{path}, *size * scale, *size * scale, *size * scale};
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

/// How many pixels the folder's pictures miss or exceed `side` by: made for it, larger, smaller.
auto rank(const IconFolder& folder, int side) {
    if (folder.smallest <= side && side <= folder.largest)
        return std::tuple{0, std::abs(folder.size - side)};
    if (folder.smallest > side)
        return std::tuple{1, folder.smallest - side};
    return std::tuple{2, side - folder.largest};
}

}

IconThemeIndex parse(std::string_view text) {
    const IniText lines{text};
    IconThemeIndex index;
    for (const std::string_view key : {"Directories", "ScaledDirectories"}) {
        for (const std::string_view path : lines.list(themeGroup, key)) {
            if (const auto found = folder(lines, path))
                index.folders.push_back(*found);
        }
    }
    for (const std::string_view parent : lines.list(themeGroup, "Inherits")) {
        index.parents.emplace_back(parent);
    }
    return index;
}

std::vector<IconFolder> bestFirst(std::vector<IconFolder> folders, int side) {
    std::ranges::stable_sort(folders, {},
                             [side](const IconFolder& folder) { return rank(folder, side); });
    return folders;
}

}
