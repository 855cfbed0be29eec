/// Reads the pinned apps out of the preferences of the desktop's own dock. Nothing here asks
/// whether an app still exists.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/PropertyList.hpp"
#include "Foundation/Result.hpp"
#include "Platform/DockPreferences.hpp"
#include "Platform/UserFolders.hpp"

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

/// The tiles as they stand now; none when the preferences are absent or of another shape.
[[nodiscard]] std::vector<ParsedDockEntry> readCurrent(DockPreferences& preferences);

/// The list of tiles in a whole preferences file, of whatever shape it is; nothing if the file has
/// none. Fails only when the bytes are no property list.
[[nodiscard]] Result<std::optional<PropertyList>> tileList(std::span<const std::byte> data,
                                                           const PropertyListDecoder& decoder);

/// The tiles of a whole preferences file. Fails only when the bytes are no property list.
[[nodiscard]] Result<std::vector<ParsedDockEntry>> parse(std::span<const std::byte> data,
                                                         const PropertyListDecoder& decoder);

/// Tiles that are malformed, or that lead anywhere but to a file, are passed over.
[[nodiscard]] std::vector<ParsedDockEntry> parseEntries(const PropertyList::Array& tiles);

/// The file that the preferences are kept in.
[[nodiscard]] FileURL plistURL(const UserFolders& folders);

}
}
