#include "Desktop/DesktopNames.hpp"

#include <algorithm>
#include <cstdlib>

namespace vireline::xdg::DesktopNames {

std::vector<std::string> parse(std::string_view currentDesktop) {
    std::vector<std::string> names;
    while (!currentDesktop.empty()) {
        const auto name = currentDesktop.substr(0, currentDesktop.find(':'));
        if (!name.empty())
            names.emplace_back(name);
        currentDesktop.remove_prefix(std::min(name.size() + 1, currentDesktop.size()));
    }
    return names;
}

std::vector<std::string> current() {
    const char* const names = std::getenv("XDG_CURRENT_DESKTOP");
    return names == nullptr ? std::vector<std::string>{} : parse(names);
}

}
