#include "Icons/IniText.hpp"

namespace vireline::x11 {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Takes the part up to one of `separators` off the front of `text`.
std::string_view takeUpTo(std::string_view separators, std::string_view& text) {
    const auto end = text.find_first_of(separators);
    const auto part = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    return part;
}

}

IniText::IniText(std::string_view text) {
    Keys* group = nullptr;
    while (!text.empty()) {
        const auto line = trimmed(takeUpTo("\n", text));
        if (line.starts_with('[') && line.ends_with(']')) {
            group = &groups_[line.substr(1, line.size() - 2)];
            continue;
        }
        const auto equals = line.find('=');
        if (group == nullptr || line.starts_with('#') || equals == std::string_view::npos)
            continue;
        group->try_emplace(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
}

std::optional<std::string_view> IniText::value(std::string_view group, std::string_view key) const {
    const auto keys = groups_.find(group);
    if (keys == groups_.end())
        return std::nullopt;
    const auto found = keys->second.find(key);
    return found == keys->second.end() ? std::nullopt : std::optional{found->second};
}

std::vector<std::string_view> IniText::list(std::string_view group, std::string_view key) const {
    std::vector<std::string_view> items;
    auto rest = value(group, key).value_or(std::string_view{});
    while (!rest.empty()) {
        const auto item = trimmed(takeUpTo(",;", rest));
        if (!item.empty())
            items.push_back(item);
    }
    return items;
}

}
