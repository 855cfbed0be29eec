/// Reading text line by line without copying it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace vireline::xdg::TextLines {

/// Without blanks at both ends; carriage returns count as blanks.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(blanks) + 1));
    return text;
}

/// Removes the first `length` bytes and the separator that follows them from `text`, and returns
/// those bytes; all of `text` if it is not longer.
[[nodiscard]] constexpr std::string_view take(std::size_t length, std::string_view& text) noexcept {
    const auto part = text.substr(0, length);
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return part;
}

/// Removes the first line from `text` and returns it.
[[nodiscard]] constexpr std::string_view takeLine(std::string_view& text) noexcept {
    return take(text.find('\n'), text);
}

}
