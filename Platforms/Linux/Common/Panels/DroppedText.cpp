#include "Panels/DroppedText.hpp"

#include "Foundation/FileURL.hpp"
#include "Text/TextLines.hpp"

#include <algorithm>

namespace vireline::xdg::DroppedText {
namespace {

constexpr std::string_view fileScheme = "file:";
constexpr std::string_view withHost = "file://";

/// Splits into lines without the empty ones. Some programs end the text with a zero byte.
std::vector<std::string_view> lines(std::string_view content) {
    while (content.ends_with('\0'))
        content.remove_suffix(1);
    std::vector<std::string_view> found;
    while (!content.empty()) {
        const auto line = TextLines::trimmed(TextLines::takeLine(content));
        if (!line.empty())
            found.push_back(line);
    }
    return found;
}

std::string withoutHost(std::string_view url, std::string_view hostName) {
    const auto host = url.substr(0, withHost.size()) == withHost ? url.substr(withHost.size())
                                                                 : std::string_view{};
    const bool namesThisComputer = !hostName.empty() && host.starts_with(hostName) &&
                                   host.substr(hostName.size()).starts_with('/');
    if (!namesThisComputer)
        return std::string{url};
    return std::string{withHost} + std::string{host.substr(hostName.size())};
}

bool isFile(std::string_view line) {
    return line.starts_with('/') || line.starts_with(fileScheme);
}

std::vector<std::string> filesOf(std::span<const std::string_view> lines,
                                 std::string_view hostName) {
    if (!std::ranges::all_of(lines, isFile))
        return {};
    std::vector<std::string> urls;
    urls.reserve(lines.size());
    for (const std::string_view line : lines) {
        urls.push_back(line.starts_with('/') ? FileURL::fromPath(line).absoluteString()
                                             : withoutHost(line, hostName));
    }
    return urls;
}

}

std::vector<std::string> urls(std::string_view format, std::string_view content,
                              std::string_view hostName) {
    const auto all = lines(content);
    if (format != formats.front())
        return filesOf(all, hostName);
    std::vector<std::string> urls;
    urls.reserve(all.size());
    for (const std::string_view line : all) {
        if (!line.starts_with('#'))
            urls.push_back(withoutHost(line, hostName));
    }
    return urls;
}

}
