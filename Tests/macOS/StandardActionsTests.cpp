#include "App/VirelineApp.hpp"
#include "Translation/StandardActions.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vireline {
namespace {

std::vector<std::string> selectorsOf(const MainMenuSubmenu& submenu) {
    std::vector<std::string> selectors;
    for (const auto& entry : submenu.entries) {
        if (const auto* command = std::get_if<MainMenuCommand>(&entry))
            selectors.emplace_back(macos::StandardActions::selector(command->action));
    }
    return selectors;
}

TEST(StandardActions, EndTheProgramFromTheFirstMenu) {
    EXPECT_EQ(selectorsOf(VirelineApp::hiddenMainMenu().submenus.at(0)),
              std::vector<std::string>{"terminate:"});
}

TEST(StandardActions, EditThroughTheResponderChain) {
    EXPECT_EQ(
        selectorsOf(VirelineApp::hiddenMainMenu().submenus.at(1)),
        (std::vector<std::string>{"undo:", "redo:", "cut:", "copy:", "paste:", "selectAll:"}));
}

}
}
