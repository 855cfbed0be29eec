/// What other programs send of the files that they let a user drag, as the texts of URLs.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11::DroppedText {

/// The forms that are understood, the best first.
inline constexpr std::array<std::string_view, 6> formats{
    "text/uri-list",
    "text/plain;charset=utf-8",
    "text/plain;charset=UTF-8",
    "UTF8_STRING",
    "text/plain",
    "STRING",
};

/// A URL list is taken line by line (RFC 2483), whatever its URLs are. Plain text stands for files
/// only if every line of it is a file URL or an absolute path; any other gives nothing. File URLs
/// that name this computer lose its name.
[[nodiscard]] std::vector<std::string> urls(std::string_view format, std::string_view content,
                                            std::string_view hostName);

}
