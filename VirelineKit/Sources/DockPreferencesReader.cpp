#include "Sources/DockPreferencesReader.hpp"

#include <algorithm>

namespace vireline::DockPreferencesReader {
namespace {

std::optional<std::string> stringUnder(const PropertyList& dictionary, std::string_view key) {
    const PropertyList* value = dictionary.find(key);
    const std::string* text = value == nullptr ? nullptr : value->string();
    return text == nullptr ? std::nullopt : std::optional{*text};
}

std::optional<ParsedDockEntry> parseTile(const PropertyList& tile) {
    const PropertyList* data = tile.find("tile-data");
    const PropertyList* file = data == nullptr ? nullptr : data->find("file-data");
    if (file == nullptr)
        return std::nullopt;
    const auto text = stringUnder(*file, "_CFURLString");
    const auto url = text ? FileURL::parse(*text) : std::nullopt;
    if (!url)
        return std::nullopt;
    return ParsedDockEntry{stringUnder(*data, "file-label"),
                           stringUnder(*data, "bundle-identifier"), *url};
}

/// One item of the wrong type invalidates the whole list, as it does for the dock itself.
std::vector<ParsedDockEntry> parseList(const PropertyList& list) {
    const PropertyList::Array* tiles = list.array();
    const auto isDictionary = [](const PropertyList& tile) { return tile.dictionary() != nullptr; };
    if (tiles == nullptr || !std::ranges::all_of(*tiles, isDictionary))
        return {};
    return parseEntries(*tiles);
}

}

std::vector<ParsedDockEntry> readCurrent(DockPreferences& preferences) {
    const auto list = preferences.persistentApps();
    return list ? parseList(*list) : std::vector<ParsedDockEntry>{};
}

Result<std::optional<PropertyList>> tileList(std::span<const std::byte> data,
                                             const PropertyListDecoder& decoder) {
    const auto root = decoder.decode(data);
    if (!root)
        return std::unexpected{root.error()};
    const PropertyList* list = root->find("persistent-apps");
    return list == nullptr ? std::nullopt : std::optional{*list};
}

Result<std::vector<ParsedDockEntry>> parse(std::span<const std::byte> data,
                                           const PropertyListDecoder& decoder) {
    const auto list = tileList(data, decoder);
    if (!list)
        return std::unexpected{list.error()};
    const std::optional<PropertyList>& tiles = *list;
    return tiles ? parseList(*tiles) : std::vector<ParsedDockEntry>{};
}

std::vector<ParsedDockEntry> parseEntries(const PropertyList::Array& tiles) {
    std::vector<ParsedDockEntry> entries;
    for (const PropertyList& tile : tiles) {
        if (auto entry = parseTile(tile))
            entries.push_back(*std::move(entry));
    }
    return entries;
}

FileURL plistURL(const UserFolders& folders) {
    return folders.home().appending("Library/Preferences/com.apple.dock.plist");
}

}
