#include "Storm/Log.hpp"

#include "Foundation/DevLog.hpp"

#include <utility>

namespace vireline::storm {
namespace {

std::vector<std::string>& lines() {
    static std::vector<std::string> caught;
    return caught;
}

void keep(const std::string& /*path*/, std::string_view line) {
    lines().emplace_back(line);
}

}

void captureLog() {
    lines().clear();
    DevLog::setPath("caught before it gets there");
    DevLog::setAppender(keep);
}

const std::vector<std::string>& loggedLines() {
    return lines();
}

std::vector<std::string> takeLoggedLines() {
    return std::exchange(lines(), {});
}

std::optional<std::string> messageOf(std::string_view line) {
    constexpr std::string_view form = "[0000-00-00T00:00:00Z] ";
    if (line.size() <= form.size() || !line.ends_with('\n'))
        return std::nullopt;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool isDigit = line[i] >= '0' && line[i] <= '9';
        if (form[i] == '0' ? !isDigit : line[i] != form[i])
            return std::nullopt;
    }
    line.remove_prefix(form.size());
    line.remove_suffix(1);
    return std::string{line};
}

bool matches(std::string_view text, std::string_view pattern) {
    const auto star = pattern.find('*');
    if (star == pattern.npos)
        return text == pattern;
    if (!text.starts_with(pattern.substr(0, star)))
        return false;
    const auto rest = pattern.substr(star + 1);
    for (auto begin = star; begin <= text.size(); ++begin) {
        if (matches(text.substr(begin), rest))
            return true;
    }
    return false;
}

}
