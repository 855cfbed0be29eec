#include "Support/LoggedLines.hpp"

#include "Foundation/DevLog.hpp"

#include <algorithm>
#include <fstream>

namespace vireline::test {
namespace {

/// Length of "[2025-03-14T09:26:53Z] ".
constexpr std::size_t stampLength = 23;

bool beginsWithStamp(std::string_view line) {
    return line.size() >= stampLength && line.starts_with('[') && line[11] == 'T' &&
           line.substr(20, 3) == "Z] ";
}

}

LoggedLines::LoggedLines() {
    DevLog::setPath(file().string());
}

LoggedLines::~LoggedLines() {
    DevLog::setPath(std::nullopt);
}

std::vector<std::string> LoggedLines::messages() const {
    std::vector<std::string> messages;
    std::ifstream log{file(), std::ios::binary};
    for (std::string line; std::getline(log, line);) {
        if (beginsWithStamp(line))
            messages.push_back(line.substr(stampLength));
        else if (!messages.empty())
            messages.back() += '\n' + line;
    }
    messages.erase(messages.begin(), messages.begin() + forgotten_);
    return messages;
}

int LoggedLines::count(std::string_view message) const {
    return static_cast<int>(std::ranges::count(messages(), message));
}

void LoggedLines::clear() {
    forgotten_ += static_cast<std::ptrdiff_t>(messages().size());
}

}
