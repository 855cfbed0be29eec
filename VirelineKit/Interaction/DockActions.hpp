/// What a dock's views can ask for. The application delegate fills the record; every view receives
/// it.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Interaction/ClickPolicy.hpp"
#include "Model/DockItem.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vireline {

/// `display` is everywhere the display ID of the dock that the tile sits on.
struct DockActions {
    std::function<void(const DockItem& item, std::uint32_t display)> leftClick;
    std::function<void(const DockItem& item, std::uint32_t display)> doubleClick;
    std::function<void(MenuEntry entry, const DockItem& item, std::uint32_t display)> menuSelect;
    /// Adds the app at `url` to the manual list; anything but an app is passed over.
    std::function<void(const FileURL& url)> addApp;
    std::function<void(const std::string& bundleID, int toIndex)> moveApp;
    std::function<bool()> isManualMode;
    std::function<void(const FileURL& url)> openFolder;
    std::function<void(const std::vector<FileURL>& urls)> trashFiles;
    std::function<void()> showSettings;
    /// Whether the desktop has a place for the status item, whose menu quits the program.
    std::function<bool()> hasStatusItem;
    std::function<void()> quit;
};

}
