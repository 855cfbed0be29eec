#include "App/StatusItemController.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/Application.hpp"
#include "Settings/LoginItemManager.hpp"

#include <string_view>
#include <utility>

namespace vireline {
namespace {

constexpr std::string_view launchAtLogin = "Launch at Login";

/// The indices of the entries in the menu.
enum Entry : std::size_t { openSettings, openOnboarding, toggleLogin, separator, quitProgram };

Menu makeMenu() {
    return {{MenuCommand{"Settings…", ','}, MenuCommand{"Welcome Tour…"},
             MenuCommand{std::string{launchAtLogin}, 0, false}, MenuSeparator{},
             MenuCommand{"Quit Vireline", 'q'}}};
}

}

StatusItemController::StatusItemController(StatusBar& statusBar, Application& application,
                                           LoginItemManager& loginItem,
                                           std::function<void()> showSettings,
                                           std::function<void()> showOnboarding)
    : application_(application)
    , loginItem_(loginItem)
    , showSettings_(std::move(showSettings))
    , showOnboarding_(std::move(showOnboarding))
    , statusItem_(statusBar.makeStatusItem(*this)) {
    statusItem_->setImage("dock.rectangle", "Vireline");
    statusItem_->setMenu(makeMenu());
}

void StatusItemController::menuNeedsUpdate(Menu& menu) {
    for (MenuItem& item : menu.entries) {
        auto* const command = std::get_if<MenuCommand>(&item);
        if (command != nullptr && command->title == launchAtLogin)
            command->isChecked = loginItem_.isEnabled();
    }
}

void StatusItemController::menuItemChosen(std::size_t index) {
    switch (index) {
    case openSettings:
        return showSettings_();
    case openOnboarding:
        return showOnboarding_();
    case toggleLogin:
        return loginItem_.toggle();
    case quitProgram:
        return quit();
    default:
        break;
    }
}

void StatusItemController::quit() {
    DevLog::write("quit from menu bar");
    application_.terminate();
}

}
