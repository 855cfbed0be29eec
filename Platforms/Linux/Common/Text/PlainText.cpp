#include "Text/PlainText.hpp"

#include <glib.h>

#include <algorithm>

namespace vireline::xdg::PlainText {
namespace {

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
}

bool isUTF8(std::string_view bytes) {
    return g_utf8_validate_len(bytes.data(), bytes.size(), nullptr) != FALSE;
}

std::string fromLatin1(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
            continue;
        }
        text += static_cast<char>(0xc0U | (byte >> 6U));
        text += static_cast<char>(0x80U | (byte & 0x3fU));
    }
    return text;
}

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

}

std::string clean(std::string_view bytes, std::size_t maximumBytes) {
    // A NUL would end the text for g_utf8_validate, so it is replaced like other control
    // characters.
    std::string text{bytes.substr(0, maximumBytes * 2)};
    std::ranges::replace_if(text, isControl, ' ');
    // Truncating may have split the last character, which does not mean that the text is Latin-1.
    std::size_t end = text.size();
    if (bytes.size() > maximumBytes * 2) {
        while (end > 0 && isContinuation(text[end - 1]))
            --end;
        end -= end > 0 && static_cast<unsigned char>(text[end - 1]) >= 0xc0U ? 1 : 0;
    }
    text = isUTF8({text.data(), end}) ? text.substr(0, end) : fromLatin1(text);
    if (text.size() > maximumBytes) {
        std::size_t cut = maximumBytes;
        while (cut > 0 && isContinuation(text[cut]))
            --cut;
        text.resize(cut);
    }
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t last = text.find_last_not_of(' ');
    return text.substr(first, last == std::string::npos ? 0 : last + 1 - first);
}

bool isClean(std::string_view text, std::size_t maximumBytes) {
    return text.size() <= maximumBytes && clean(text, maximumBytes) == text;
}

std::string folded(std::string_view text) {
    std::string lower{text};
    std::ranges::transform(lower, lower.begin(), [](char c) { return g_ascii_tolower(c); });
    return lower;
}

std::string_view baseName(std::string_view path) noexcept {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

}
