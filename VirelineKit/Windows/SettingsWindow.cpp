#include "Windows/SettingsWindow.hpp"

#include "App/LoginItemManager.hpp"
#include "Platform/Workspace.hpp"
#include "Settings/PreferencesStore.hpp"
#include "WindowManagement/DockAnchorGuard.hpp"
#include "Windows/SettingsView.hpp"
#include "Windows/SystemSettings.hpp"

namespace vireline {

SettingsWindowController::SettingsWindowController(PreferencesStore& store,
                                                   LoginItemManager& loginItem,
                                                   DockAnchorGuard& anchorGuard,
                                                   ProgramWindows& windows, Workspace& workspace)
    : store_(store)
    , loginItem_(loginItem)
    , anchorGuard_(anchorGuard)
    , windows_(windows)
    , workspace_(workspace) {}

void SettingsWindowController::show() {
    if (!window_)
        makeWindow();
    if (!window_->isVisible())
        launchAtLogin_ = loginItem_.isEnabled();
    present();
    window_->makeKeyAndOrderFront();
}

void SettingsWindowController::makeWindow() {
    window_ = windows_.makeFormWindow(
        {.title = "Vireline Settings", .contentSize = {480, 640}, .isMiniaturizable = true}, *this);
    const auto changed = lifetime_.guard([this] {
        if (window_->isVisible())
            present();
    });
    observations_ = {store_.observe(changed), anchorGuard_.observeStatus(changed)};
}

void SettingsWindowController::present() {
    window_->present(
        SettingsView::form(store_.settings(), {.launchesAtLogin = launchAtLogin_,
                                               .anchorStatus = anchorGuard_.status()}));
}

void SettingsWindowController::formChanged(SettingsField field, const FormValue& value) {
    const auto* const isOn = std::get_if<bool>(&value);
    if (field != SettingsField::launchAtLogin)
        store_.setSettings(SettingsView::edited(store_.settings(), field, value));
    else if (isOn != nullptr)
        setLaunchAtLogin(*isOn);
}

/// The switch stays as the user set it, also when the system refuses.
void SettingsWindowController::setLaunchAtLogin(bool isOn) {
    launchAtLogin_ = isOn;
    if (isOn != loginItem_.isEnabled())
        loginItem_.toggle();
    present();
}

void SettingsWindowController::formStatusButtonPressed(SettingsField /*field*/) {
    workspace_.openSystemSettings(SystemSettings::accessibilityPane);
}

}
