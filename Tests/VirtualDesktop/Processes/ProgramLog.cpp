#include "VirtualDesktop/Processes/ProgramLog.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <algorithm>
#include <fstream>
#include <ranges>

namespace vireline::desktop {

std::vector<std::string> ProgramLog::lines() const {
    std::ifstream file{file_};
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> ProgramLog::messages() const {
    auto messages = lines();
    for (auto& message : messages) {
        constexpr std::string_view end = "] ";
        const auto stamp = message.find(end);
        if (message.starts_with('[') && stamp != std::string::npos)
            message.erase(0, stamp + end.size());
    }
    return messages;
}

int ProgramLog::count(std::string_view prefix) const {
    return static_cast<int>(std::ranges::count_if(
        messages(), [&](const auto& message) { return message.starts_with(prefix); }));
}

std::string ProgramLog::last(std::string_view prefix) const {
    const auto all = messages();
    for (const auto& message : all | std::views::reverse) {
        if (message.starts_with(prefix))
            return message;
    }
    return {};
}

bool ProgramLog::reaches(std::string_view prefix, int times) const {
    return eventually([&] { return count(prefix) >= times; });
}

}
