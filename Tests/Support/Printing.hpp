/// Prints values without a stream operator of their own in failure messages.
#pragma once

#include "Interaction/ClickPolicy.hpp"
#include "Platform/Desktop/DesktopWords.hpp"
#include "Settings/Settings.hpp"

#include <ostream>

namespace vireline {

inline std::ostream& operator<<(std::ostream& out, MenuEntry entry) {
    return out << title(entry, DesktopWords{});
}

inline std::ostream& operator<<(std::ostream& out, DockPosition position) {
    return out << rawValue(position);
}

inline std::ostream& operator<<(std::ostream& out, SourceMode mode) {
    return out << rawValue(mode);
}

inline std::ostream& operator<<(std::ostream& out, const StoredApp& app) {
    return out << app.bundleID << " \"" << app.name << "\" " << app.path;
}

}
