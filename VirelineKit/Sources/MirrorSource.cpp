#include "Sources/MirrorSource.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Files/FileSystem.hpp"

#include <algorithm>
#include <string>

namespace vireline {

MirrorSource::MirrorSource(const Platform& platform)
    : preferences_(platform.dockPreferences)
    , catalog_(platform.catalog)
    , fileSystem_(platform.fileSystem)
    , runLoop_(platform.runLoop)
    , watcher_(DockPreferencesReader::plistURL(platform.userFolders), platform.fileEvents,
               platform.runLoop, lifetime_.guard([this] { scheduleEmit(); })) {}

void MirrorSource::start() {
    // Changes are observed first, so that none is missed while the first reading is shown.
    changes_ = preferences_.observeChanges(lifetime_.guard([this] { scheduleEmit(); }));
    watcher_.start();
    emit();
}

void MirrorSource::scheduleEmit() {
    debounce_ = runLoop_.after(debounceDelay, lifetime_.guard([this] { emit(); }));
}

void MirrorSource::emit() {
    const auto apps = resolve(DockPreferencesReader::readCurrent(preferences_));
    DevLog::write("mirror: " + std::to_string(apps.size()) + " pinned apps from Apple's Dock");
    if (onChange)
        onChange(apps);
}

std::vector<AppRef> MirrorSource::resolve(std::span<const ParsedDockEntry> entries) const {
    std::vector<AppRef> apps;
    for (const ParsedDockEntry& entry : entries) {
        if (!fileSystem_.exists(entry.url))
            continue;
        const auto bundleID =
            entry.bundleID ? entry.bundleID : catalog_.bundleIdentifier(entry.url);
        if (bundleID)
            apps.push_back({*bundleID, entry.label ? *entry.label : catalog_.displayName(entry.url),
                            entry.url});
    }
    const auto manager = catalog_.fileManager();
    if (std::ranges::find(apps, manager.bundleID, &AppRef::bundleID) != apps.end())
        return apps;
    if (const auto url = catalog_.urlForBundleID(manager.bundleID))
        apps.insert(apps.begin(), AppRef{manager.bundleID, manager.name, *url});
    return apps;
}

}
