#include "Interaction/NewWindow.hpp"

#include <algorithm>
#include <string_view>

namespace vireline::NewWindow {
namespace {

/// In lower case, letters only: desktop entries write "new-window", "NewWindow" and "new_window".
std::string folded(std::string_view id) {
    std::string letters;
    for (const char c : id) {
        if (c >= 'A' && c <= 'Z')
            letters += static_cast<char>(c - 'A' + 'a');
        else if (c != '-' && c != '_')
            letters += c;
    }
    return letters;
}

}

std::optional<std::string> action(std::span<const ApplicationCatalog::Action> actions) {
    const auto found = std::ranges::find_if(actions, [](const ApplicationCatalog::Action& offered) {
        return folded(offered.id) == "newwindow";
    });
    return found == actions.end() ? std::nullopt : std::optional{found->id};
}

}
