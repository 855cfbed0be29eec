/// The item in the menu bar or tray. Its menu opens the settings and the welcome tour, switches
/// launching at login on and off, and quits.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/StatusBar.hpp"

#include <functional>
#include <memory>

namespace vireline {

class Application;
class LoginItemManager;

class StatusItemController : private NonCopyable {
public:
    StatusItemController(StatusBar& statusBar, Application& application,
                         LoginItemManager& loginItem, std::function<void()> showSettings,
                         std::function<void()> showOnboarding);

    /// Whether the desktop shows the item, so that the user can reach it.
    [[nodiscard]] bool hasPlace() const { return statusItem_->hasPlace(); }

private:
    [[nodiscard]] Menu menu() const;
    void quit() const;

    Application& application_;
    LoginItemManager& loginItem_;
    std::function<void()> showSettings_;
    std::function<void()> showOnboarding_;
    std::unique_ptr<StatusItem> statusItem_;
    Lifetime lifetime_;
};

}
