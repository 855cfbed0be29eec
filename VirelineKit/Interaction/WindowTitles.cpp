#include "Interaction/WindowTitles.hpp"

#include <algorithm>
#include <vector>

namespace vireline::WindowTitles {
namespace {

constexpr std::string_view ellipsis = "…";

bool isControl(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7f;
}

std::string inOneLine(std::string_view title) {
    std::string line{title};
    std::ranges::replace_if(line, isControl, ' ');
    const auto first = line.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

/// Where each character begins.
std::vector<std::size_t> characters(std::string_view text) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool continues = (static_cast<unsigned char>(text[i]) & 0xc0) == 0x80;
        if (!continues)
            starts.push_back(i);
    }
    return starts;
}

/// Keeps the beginning, which usually names a document, and the end, which may name its folder.
std::string shortened(const std::string& line) {
    const auto starts = characters(line);
    if (starts.size() <= maximumCharacters)
        return line;
    constexpr std::size_t head = maximumCharacters / 2;
    constexpr std::size_t tail = maximumCharacters - head - 1;
    return line.substr(0, starts[head]) + std::string{ellipsis} +
           line.substr(starts[starts.size() - tail]);
}

}

std::string menuTitle(std::string_view title, std::string_view appName) {
    const std::string line = inOneLine(title);
    return shortened(line.empty() ? inOneLine(appName) : line);
}

}
