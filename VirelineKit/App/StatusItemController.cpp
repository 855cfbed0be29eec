#include "App/StatusItemController.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/Application.hpp"
#include "Settings/LoginItemManager.hpp"

#include <utility>

namespace vireline {
StatusItemController::StatusItemController(StatusBar& statusBar, Application& application,
                                           LoginItemManager& loginItem,
                                           std::function<void()> showSettings,
                                           std::function<void()> showOnboarding)
    : application_(application)
    , loginItem_(loginItem)
    , showSettings_(std::move(showSettings))
    , showOnboarding_(std::move(showOnboarding))
    , statusItem_(statusBar.makeStatusItem()) {
    statusItem_->setImage("dock.rectangle", "Vireline");
    statusItem_->setMenu(lifetime_.guardOr(Menu{}, [this] { return menu(); }));
}

Menu StatusItemController::menu() const {
    return {{MenuCommand{.title = "Settings…", .keyEquivalent = ',', .action = showSettings_},
             MenuCommand{.title = "Welcome Tour…", .action = showOnboarding_},
             MenuCommand{.title = "Launch at Login",
                         .isChecked = loginItem_.isEnabled(),
                         .action = lifetime_.guard([this] { loginItem_.toggle(); })},
             MenuSeparator{},
             MenuCommand{.title = "Quit Vireline",
                         .keyEquivalent = 'q',
                         .action = lifetime_.guard([this] { quit(); })}}};
}

void StatusItemController::quit() const {
    DevLog::write("quit from menu bar");
    application_.terminate();
}

}
