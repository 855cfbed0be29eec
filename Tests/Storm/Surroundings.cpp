#include "Storm/Surroundings.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vireline::storm {

Surroundings::Surroundings()
    : desktopsDock(
          platform.userFolders.homeFolder.appending("Library/Preferences/com.apple.dock.plist")) {
    constexpr std::array<std::pair<const char*, const char*>, 9> installed{
        {{"com.apple.finder", "Finder"},
         {"com.apple.Safari", "Safari"},
         {"com.apple.mail", "Mail"},
         {"com.apple.Notes", "Notes"},
         {"org.example.Maps", "Maps"},
         {"org.example.Music", "Music"},
         {"org.example.Chess", "Chess"},
         {"org.example.Paint", "Paint"},
         {"org.example.Radio", "Radio"}}};
    for (const auto& [bundleID, name] : installed)
        apps.push_back(platform.install(bundleID, name));
    platform.fileSystem.put(desktopsDock);
    platform.fileSystem.put(letter);
    platform.fileSystem.put(locked);
    platform.trash.failures[locked.path()] = {13, "locked"};
    // So that the menu beside the tiles has all of its entries.
    platform.statusBar.hasPlace = false;
}

void Surroundings::writePins() {
    if (pinsAreAbsent) {
        platform.dockPreferences.tiles.reset();
        return;
    }
    PropertyList::Array tiles;
    for (const Pin& pin : pins) {
        const AppRef& app = apps.at(pin.app);
        const std::string url = pin.kind == Pin::Kind::webAddress ? "https://example.org/app"
                                                                  : app.url.absoluteString();
        if (pin.kind == Pin::Kind::withoutFile) {
            tiles.emplace_back(
                PropertyList::Dictionary{{"tile-data", PropertyList{PropertyList::Dictionary{}}}});
            continue;
        }
        tiles.push_back(test::dockTile(
            url, pin.kind == Pin::Kind::unlabelled ? std::nullopt : std::optional{pinnedLabel(app)},
            pin.kind == Pin::Kind::unidentified ? std::nullopt : std::optional{app.bundleID}));
    }
    if (pinsAreDamaged)
        tiles.emplace_back(std::string{"no dictionary"});
    platform.dockPreferences.tiles = PropertyList{std::move(tiles)};
}

bool Surroundings::isInCatalog(const AppRef& app) const {
    return std::ranges::count(platform.catalog.installed, app) > 0;
}

FileURL Surroundings::preferences() const {
    return platform.userFolders.applicationSupportFolders.front()
        .appending("Vireline")
        .appending("preferences.json");
}

std::string pinnedLabel(const AppRef& app) {
    return app.name + " as pinned";
}

}
