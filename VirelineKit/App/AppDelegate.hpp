/// The composition root: the one place that knows all objects. It creates them, connects them and
/// starts them in a fixed order. Changes of the settings, the pinned list and the running apps
/// reach the docks through its handlers.
#pragma once

#include "App/StatusItemController.hpp"
#include "ClientWindows/DockAnchorGuard.hpp"
#include "ClientWindows/WindowMover.hpp"
#include "Displays/DisplayCoordinator.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Interaction/AppActivator.hpp"
#include "Interaction/DockActions.hpp"
#include "Interaction/TrashService.hpp"
#include "Model/DockViewModel.hpp"
#include "Platform/Platform.hpp"
#include "ProgramWindows/OnboardingWindow.hpp"
#include "ProgramWindows/SettingsWindow.hpp"
#include "Settings/LoginItemManager.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Sources/AppSourceResolver.hpp"
#include "Sources/IconStore.hpp"
#include "Sources/RunningAppsMonitor.hpp"
#include "Sources/TileSignals.hpp"

#include <optional>
#include <span>
#include <vector>

namespace vireline {

class AppDelegate : private NonCopyable {
public:
    /// Loads the settings; everything else waits for `applicationDidFinishLaunching`. The platform
    /// must outlive the delegate.
    explicit AppDelegate(const Platform& platform);

    void applicationDidFinishLaunching();

private:
    [[nodiscard]] DockActions makeDockActions();
    [[nodiscard]] DockViewContext makeViewContext();
    void makeStatusItem();
    void showSettings();
    void showOnboarding();
    void connect();
    void applyAnchorSetting();
    void seedModel();
    void settingsChanged();
    void pinnedListChanged(const std::vector<AppRef>& pinned);
    void showTiles(std::span<const AppRef> running);

    Platform platform_;
    DockViewModel model_;
    IconStore icons_;
    RunningAppsMonitor monitor_;
    TileSignals signals_;
    AppActivator activator_;
    LoginItemManager loginItem_;
    DockAnchorGuard anchorGuard_;
    TrashService trashService_;
    PreferencesStore store_;
    /// The last pinned list that the resolver delivered.
    std::vector<AppRef> pinned_;
    std::optional<StatusItemController> statusItem_;
    AppSourceResolver resolver_;
    /// Created when first shown, then kept.
    std::optional<SettingsWindowController> settingsWindow_;
    std::optional<OnboardingWindowController> onboarding_;
    DockActions dockActions_;
    DisplayCoordinator coordinator_;
    WindowMover windowMover_;
    Subscription secondStarts_;
    Lifetime lifetime_;
};

}
