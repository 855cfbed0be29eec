#include "Foundation/ReplacementNames.hpp"

#include <algorithm>

namespace vireline::ReplacementNames {
namespace {

constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t tokenLength = 16;
constexpr std::string_view suffix = ".vireline-save";

std::string prefix(std::string_view file) {
    return "." + std::string{file} + ".";
}

}

std::string name(std::string_view file, std::uint64_t token) {
    constexpr unsigned bitsPerDigit = 4;
    std::string text(tokenLength, digits.front());
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, token >>= bitsPerDigit)
        *digit = digits[token % digits.size()];
    return prefix(file) + text + std::string{suffix};
}

bool isName(std::string_view candidate, std::string_view file) {
    const std::string before = prefix(file);
    if (candidate.size() != before.size() + tokenLength + suffix.size() ||
        !candidate.starts_with(before) || !candidate.ends_with(suffix))
        return false;
    const auto isDigit = [](char c) { return digits.contains(c); };
    return std::ranges::all_of(candidate.substr(before.size(), tokenLength), isDigit);
}

}
