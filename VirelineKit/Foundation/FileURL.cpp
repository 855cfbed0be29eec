#include "Foundation/FileURL.hpp"

#include <algorithm>
#include <cctype>

namespace vireline {
namespace {

constexpr std::string_view scheme = "file:";

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

/// The characters that need no escape in a path (RFC 3986, section 3.3), and the slash.
bool isPlainInPath(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 &&
           (std::isalnum(byte) != 0 || std::string_view{"-._~!$&'()*+,;=:@/"}.contains(c));
}

std::optional<int> hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return std::nullopt;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        if (i + 2 >= text.size())
            return std::nullopt;
        const auto high = hexDigit(text[i + 1]);
        const auto low = hexDigit(text[i + 2]);
        if (!high || !low || (*high == 0 && *low == 0))
            return std::nullopt;
        decoded += static_cast<char>(*high * 16 + *low);
        i += 2;
    }
    return decoded;
}

}

FileURL FileURL::fromPath(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return FileURL{std::string{path}};
}

std::optional<FileURL> FileURL::parse(std::string_view text) {
    if (!equalsIgnoringCase(text.substr(0, scheme.size()), scheme))
        return std::nullopt;
    text.remove_prefix(scheme.size());
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        const std::size_t hostEnd = std::min(text.find('/'), text.size());
        const std::string_view host = text.substr(0, hostEnd);
        if (!host.empty() && !equalsIgnoringCase(host, "localhost"))
            return std::nullopt;
        text.remove_prefix(hostEnd);
    }
    text = text.substr(0, text.find_first_of("?#"));
    const auto isUnfit = [](unsigned char c) { return c <= ' ' || c == 0x7f; };
    if (!text.starts_with('/') || std::ranges::any_of(text, isUnfit))
        return std::nullopt;
    const auto path = percentDecoded(text);
    if (!path)
        return std::nullopt;
    return fromPath(*path);
}

std::string FileURL::absoluteString() const {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "file://";
    for (const char c : path_) {
        if (isPlainInPath(c)) {
            text += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        text += '%';
        text += digits[byte / 16U];
        text += digits[byte % 16U];
    }
    return text;
}

std::string FileURL::lastPathComponent() const {
    if (path_ == "/")
        return path_;
    return path_.substr(path_.rfind('/') + 1);
}

std::string FileURL::pathExtension() const {
    const std::string name = lastPathComponent();
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? std::string{} : name.substr(dot + 1);
}

FileURL FileURL::appending(std::string_view component) const {
    return fromPath((path_ == "/" ? "/" : path_ + "/") + std::string{component});
}

FileURL FileURL::parent() const {
    const std::size_t slash = path_.rfind('/');
    return fromPath(slash == 0 || slash == std::string::npos ? "/" : path_.substr(0, slash));
}

}
