/// Carries out what a click, a double click or a menu choice on an app's tile means.
#pragma once

#include "Interaction/ClickPolicy.hpp"
#include "Model/DockItem.hpp"
#include "Platform/RunningApplications.hpp"
#include "Platform/Workspace.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <functional>
#include <string>

namespace vireline {

class Accessibility;
class Screens;
class WindowMover;

/// `display` is everywhere the display ID of the dock that the tile sits on. Of several running
/// instances the first stands for the app.
class AppActivator {
public:
    AppActivator(RunningApplications& applications, Workspace& workspace, const Screens& screens,
                 const Accessibility& accessibility)
        : applications_(applications)
        , workspace_(workspace)
        , screens_(screens)
        , accessibility_(accessibility) {}
    AppActivator(const AppActivator&) = delete;
    AppActivator& operator=(const AppActivator&) = delete;
    AppActivator(AppActivator&&) = delete;
    AppActivator& operator=(AppActivator&&) = delete;
    ~AppActivator() = default;

    /// Not owned. While null, no window is placed or summoned.
    WindowMover* windowMover = nullptr;

    /// Asked at every action, so that a changed setting counts from the next click on.
    std::function<Settings()> settings = [] { return Settings{}; };

    /// Launches the app, brings it forward, or hides it when it is frontmost. If the settings say
    /// so, a launched app opens on the display, and one without a window there comes to it.
    void leftClick(const DockItem& item, std::uint32_t display);

    /// Fills the display with the app's window, if the settings say so and the system lets us. Else
    /// it is the second click of a pair whose first was a click of its own, so that on a frontmost
    /// app the pair hides it and brings it back.
    void doubleClick(const DockItem& item, std::uint32_t display);

    /// Everything but removal, which is the list's business.
    void menuSelect(MenuEntry entry, const DockItem& item, std::uint32_t display);

private:
    void launch(const DockItem& item, std::uint32_t display);
    void open(const DockItem& item, const std::string& logLine);
    [[nodiscard]] bool canFill() const;

    RunningApplications& applications_;
    Workspace& workspace_;
    const Screens& screens_;
    const Accessibility& accessibility_;
};

}
