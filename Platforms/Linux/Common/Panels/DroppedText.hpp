/// Converts dragged files, in the formats that other programs send, to URLs.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg::DroppedText {

/// The supported formats, best first.
inline constexpr std::array<std::string_view, 6> formats{
    "text/uri-list",
    "text/plain;charset=utf-8",
    "text/plain;charset=UTF-8",
    "UTF8_STRING",
    "text/plain",
    "STRING",
};

/// A URL list is read line by line (RFC 2483) and may contain any URLs. Plain text is accepted only
/// if every line is a file URL or an absolute path; otherwise the result is empty. This computer's
/// host name is removed from file URLs.
[[nodiscard]] std::vector<std::string> urls(std::string_view format, std::string_view content,
                                            std::string_view hostName);

}
