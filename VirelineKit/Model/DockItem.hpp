/// Apps as the sources report them and as the docks show them.
#pragma once

#include "Foundation/FileURL.hpp"

#include <ostream>
#include <string>

namespace vireline {

/// An app as a source reports it.
struct AppRef {
    /// Identifies the app throughout the program.
    std::string bundleID;
    std::string name;
    FileURL url;

    bool operator==(const AppRef&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const AppRef& app) {
    return out << app.bundleID << " \"" << app.name << "\" " << app.url;
}

/// One app tile.
struct DockItem {
    /// The app's bundle identifier.
    std::string id;
    std::string name;
    FileURL url;
    bool isPinned = false;
    bool isRunning = false;

    bool operator==(const DockItem&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const DockItem& item) {
    return out << item.id << (item.isPinned ? " pinned" : "") << (item.isRunning ? " running" : "");
}

}
