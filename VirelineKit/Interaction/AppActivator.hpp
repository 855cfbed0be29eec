/// Carries out what a click, a double click or a menu choice on an app's tile means.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Interaction/ClickPolicy.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Applications/RunningApplications.hpp"
#include "Platform/Applications/Workspace.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vireline {

class Screens;
class WindowMover;

/// `display` is always the display ID of the tile's dock. If several instances of an app are
/// running, the first one is used.
class AppActivator : private NonCopyable {
public:
    AppActivator(RunningApplications& applications, Workspace& workspace,
                 const ApplicationCatalog& catalog, const Screens& screens,
                 const Accessibility& accessibility)
        : applications_(applications)
        , workspace_(workspace)
        , catalog_(catalog)
        , screens_(screens)
        , accessibility_(accessibility) {}

    /// Not owned. If null, windows are neither placed nor summoned.
    WindowMover* windowMover = nullptr;

    /// Called for every action, so that changed settings apply from the next click on.
    std::function<Settings()> settings = [] { return Settings{}; };

    /// Launches the app, brings it forward, or hides it if it is frontmost. Depending on the
    /// settings, a launched app opens on `display`, and a running one without a window there has
    /// its main window moved there.
    void leftClick(const DockItem& item, std::uint32_t display);

    /// Fills the display with the app's window, if that is enabled and permitted. Otherwise treats
    /// this as a second single click: the first has already been handled, so a double click on a
    /// frontmost app hides it and brings it back.
    void doubleClick(const DockItem& item, std::uint32_t display);

    /// The app's windows for its menu, most recently active first.
    [[nodiscard]] std::vector<OpenWindow> windows(const DockItem& item) const;
    /// Brings one of them forward; if summoning is on, on `display`.
    void showWindow(const OpenWindow& window, const DockItem& item, std::uint32_t display);

    /// What the app offers in its menu.
    [[nodiscard]] std::vector<ApplicationCatalog::Action> actions(const DockItem& item) const {
        return catalog_.actions(item.url);
    }
    /// Carries out one of these.
    void perform(const std::string& actionID, const DockItem& item);

    /// Opens another window: with the app's action for that, or else by starting the app again.
    void middleClick(const DockItem& item, std::uint32_t display);

    /// Handles every entry except `removeFromDock`, which concerns the pinned list.
    void menuSelect(MenuEntry entry, const DockItem& item, std::uint32_t display);

private:
    void launch(const DockItem& item, std::uint32_t display);
    void open(const DockItem& item, const std::string& logLine);
    [[nodiscard]] bool canFill() const;

    RunningApplications& applications_;
    Workspace& workspace_;
    const ApplicationCatalog& catalog_;
    const Screens& screens_;
    const Accessibility& accessibility_;
};

}
