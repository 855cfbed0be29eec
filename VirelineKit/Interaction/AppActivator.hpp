/// Carries out what a click, a double click or a menu choice on an app's tile means.
#pragma once

#include "Interaction/ClickPolicy.hpp"
#include "Model/DockItem.hpp"
#include "Platform/RunningApplications.hpp"
#include "Platform/Workspace.hpp"

#include <cstdint>
#include <string>

namespace vireline {

/// `display` is everywhere the display ID of the dock that the tile sits on. Of several running
/// instances the first stands for the app.
class AppActivator {
public:
    AppActivator(RunningApplications& applications, Workspace& workspace)
        : applications_(applications), workspace_(workspace) {}
    AppActivator(const AppActivator&) = delete;
    AppActivator& operator=(const AppActivator&) = delete;
    AppActivator(AppActivator&&) = delete;
    AppActivator& operator=(AppActivator&&) = delete;
    ~AppActivator() = default;

    /// Launches the app, brings it forward, or hides it when it is frontmost.
    void leftClick(const DockItem& item, std::uint32_t display);

    /// The second click of a pair whose first was a click of its own, so that on a frontmost app
    /// the pair hides it and brings it back.
    void doubleClick(const DockItem& item, std::uint32_t display);

    /// Everything but removal, which is the list's business.
    void menuSelect(MenuEntry entry, const DockItem& item, std::uint32_t display);

private:
    void open(const DockItem& item, const std::string& logLine);

    RunningApplications& applications_;
    Workspace& workspace_;
};

}
