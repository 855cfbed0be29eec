/// The actions that a dock's view can trigger. The application delegate fills in the callbacks; all
/// views share the record.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Interaction/ClickPolicy.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

/// `display` is always the display ID of the tile's dock.
struct DockActions {
    std::function<void(const DockItem& item, std::uint32_t display)> leftClick;
    std::function<void(const DockItem& item, std::uint32_t display)> doubleClick;
    std::function<void(MenuEntry entry, const DockItem& item, std::uint32_t display)> menuSelect;
    /// The app's windows, most recently active first.
    std::function<std::vector<OpenWindow>(const DockItem& item)> windows;
    std::function<void(const OpenWindow& window, const DockItem& item, std::uint32_t display)>
        showWindow;
    /// What the app offers in its menu.
    std::function<std::vector<ApplicationCatalog::Action>(const DockItem& item)> appActions;
    std::function<void(const std::string& actionID, const DockItem& item)> performAction;
    std::function<void(const DockItem& item, std::uint32_t display)> middleClick;
    /// Adds the app at `url` to the manual list; anything else is ignored.
    std::function<void(const FileURL& url)> addApp;
    std::function<void(const std::string& bundleID, int toIndex)> moveApp;
    std::function<bool()> isManualMode;
    /// The title of the entry that undoes the last edit of the list; nullopt if there is none.
    std::function<std::optional<std::string>()> undoTitle;
    std::function<void()> undo;
    std::function<void(const FileURL& url)> openFolder;
    std::function<void(const std::vector<FileURL>& urls)> trashFiles;
    std::function<void()> showSettings;
    /// Whether the desktop shows the status item, whose menu can quit the program.
    std::function<bool()> hasStatusItem;
    std::function<void()> quit;
};

}
