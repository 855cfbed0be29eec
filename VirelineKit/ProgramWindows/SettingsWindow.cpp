#include "ProgramWindows/SettingsWindow.hpp"

#include "ClientWindows/DockAnchorGuard.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/Applications/Workspace.hpp"
#include "Platform/Platform.hpp"
#include "ProgramWindows/SettingsView.hpp"
#include "Settings/LoginItemManager.hpp"
#include "Settings/PreferencesStore.hpp"

namespace vireline {

SettingsWindowController::SettingsWindowController(PreferencesStore& store,
                                                   LoginItemManager& loginItem,
                                                   DockAnchorGuard& anchorGuard,
                                                   const Platform& platform)
    : store_(store)
    , loginItem_(loginItem)
    , anchorGuard_(anchorGuard)
    , windows_(platform.programWindows)
    , workspace_(platform.workspace)
    , accessibility_(platform.accessibility)
    , words_(platform.words) {}

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
    observations_ = {store_.observe(changed), anchorGuard_.observeStatus(changed),
                     accessibility_.observeManager(changed)};
}

void SettingsWindowController::present() {
    const SettingsView::Surroundings surroundings{.launchesAtLogin = launchAtLogin_,
                                                  .anchorStatus = anchorGuard_.status(),
                                                  .canMoveWindows =
                                                      accessibility_.canMoveWindows()};
    window_->present(SettingsView::form(store_.settings(), surroundings, words_));
}

void SettingsWindowController::formChanged(SettingsField field, const FormValue& value) {
    const auto* const isOn = std::get_if<bool>(&value);
    if (field != SettingsField::launchAtLogin)
        store_.setSettings(SettingsView::edited(store_.settings(), field, value));
    else if (isOn != nullptr)
        setLaunchAtLogin(*isOn);
}

/// The switch stays as the user set it, even if the system refuses.
void SettingsWindowController::setLaunchAtLogin(bool isOn) {
    launchAtLogin_ = isOn;
    if (isOn != loginItem_.isEnabled())
        loginItem_.toggle();
    present();
}

void SettingsWindowController::formStatusButtonPressed(SettingsField /*field*/) {
    workspace_.openSystemSettings(words_.permissionPane);
}

}
