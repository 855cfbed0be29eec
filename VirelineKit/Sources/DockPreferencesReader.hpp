/// Reads the pinned apps from the preferences of the desktop's own dock. Does not check whether the
/// apps still exist.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/PropertyList.hpp"
#include "Foundation/Result.hpp"
#include "Platform/Applications/DockPreferences.hpp"
#include "Platform/Files/UserFolders.hpp"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireline {

/// One pinned tile as the dock stores it.
struct ParsedDockEntry {
    std::optional<std::string> label;
    std::optional<std::string> bundleID;
    FileURL url;

    bool operator==(const ParsedDockEntry&) const = default;
};

namespace DockPreferencesReader {

/// The current tiles; none if the preferences are missing or malformed.
[[nodiscard]] std::vector<ParsedDockEntry> readCurrent(DockPreferences& preferences);

/// The unchecked list of tiles in a preferences file; nullopt if the file has none. Fails only if
/// the bytes are not a property list.
[[nodiscard]] Result<std::optional<PropertyList>> tileList(std::span<const std::byte> data,
                                                           const PropertyListDecoder& decoder);

/// The tiles in a preferences file. Fails only if the bytes are not a property list. Kept for a
/// later version; nothing calls it yet.
[[nodiscard]] Result<std::vector<ParsedDockEntry>> parse(std::span<const std::byte> data,
                                                         const PropertyListDecoder& decoder);

/// Tiles that are malformed, or whose URL is not a file URL, are ignored.
[[nodiscard]] std::vector<ParsedDockEntry> parseEntries(const PropertyList::Array& tiles);

/// The preferences file.
[[nodiscard]] FileURL plistURL(const UserFolders& folders);

}
}
