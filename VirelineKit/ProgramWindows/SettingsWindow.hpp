/// The settings window, created when first shown and then kept. Changes by the user are written to
/// the store at once; changes made elsewhere show at once.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/Desktop/DesktopWords.hpp"
#include "Platform/ProgramWindows.hpp"

#include <array>
#include <memory>

namespace vireline {

class Accessibility;
class DockAnchorGuard;
class LoginItemManager;
class PreferencesStore;
class Workspace;
struct Platform;

class SettingsWindowController : private FormListener, private NonCopyable {
public:
    SettingsWindowController(PreferencesStore& store, LoginItemManager& loginItem,
                             DockAnchorGuard& anchorGuard, const Platform& platform);

    /// Brings the window to the front of all programs.
    void show();

private:
    void formChanged(SettingsField field, const FormValue& value) override;
    void formStatusButtonPressed(SettingsField field) override;

    void makeWindow();
    void present();
    void setLaunchAtLogin(bool isOn);

    PreferencesStore& store_;
    LoginItemManager& loginItem_;
    DockAnchorGuard& anchorGuard_;
    ProgramWindows& windows_;
    Workspace& workspace_;
    Accessibility& accessibility_;
    DesktopWords words_;
    std::unique_ptr<FormWindow> window_;
    /// The system's state when the window was last shown, or as the user has set it since.
    bool launchAtLogin_ = false;
    std::array<Subscription, 3> observations_;
    Lifetime lifetime_;
};

}
