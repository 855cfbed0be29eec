#include "Text/IniText.hpp"

#include "Text/TextLines.hpp"

#include <algorithm>
#include <cstddef>

namespace vireline::xdg {
namespace {

using TextLines::take;
using TextLines::takeLine;
using TextLines::trimmed;

std::size_t findSeparator(std::string_view text) {
    const auto isSeparator = [](char letter) { return letter == ',' || letter == ';'; };
    return static_cast<std::size_t>(std::ranges::find_if(text, isSeparator) - text.begin());
}

}

IniText::IniText(std::string_view text) {
    Keys* group = nullptr;
    while (!text.empty()) {
        const auto line = trimmed(takeLine(text));
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
        const auto item = trimmed(take(findSeparator(rest), rest));
        if (!item.empty())
            items.push_back(item);
    }
    return items;
}

}
