/// Which apps the docks show: the apps pinned on the desktop, the user's list, the running apps.
#include "Storm/Model.hpp"

#include <algorithm>
#include <iterator>

namespace vireline::storm {

std::vector<AppRef> Model::mirrored() const {
    std::vector<AppRef> list;
    if (!around_.pinsAreAbsent && !around_.pinsAreDamaged) {
        for (const Pin& pin : around_.pins) {
            const AppRef& app = around_.apps.at(pin.app);
            if (pin.kind == Pin::Kind::webAddress || pin.kind == Pin::Kind::withoutFile)
                continue;
            const bool isInCatalog = around_.isInCatalog(app);
            if (!around_.isOnDisk(app) || (pin.kind == Pin::Kind::unidentified && !isInCatalog))
                continue;
            std::string name = pinnedLabel(app);
            if (pin.kind == Pin::Kind::unlabelled)
                name = isInCatalog ? app.name : app.url.lastPathComponent();
            list.push_back({app.bundleID, name, app.url});
        }
    }
    const AppRef& finder = around_.apps.front();
    const bool isListed = std::ranges::count(list, finder.bundleID, &AppRef::bundleID) > 0;
    if (!isListed && around_.isInCatalog(finder))
        list.insert(list.begin(), {finder.bundleID, "Finder", finder.url});
    return list;
}

void Model::readMirror() {
    ++mirrorReads;
    lastMirror_ = mirrored();
    line("mirror: " + std::to_string(lastMirror_.size()) + " pinned apps from Apple's Dock");
    if (!isManual())
        emit();
}

void Model::watch() {
    const auto& platform = around_.platform;
    waitsForFile_ = !platform.fileSystem.exists(around_.desktopsDock);
    watchesFile = platform.fileEvents.waitsForMissingFiles || !waitsForFile_;
    if (!watchesFile)
        retryWatchAt_ = now_ + nanoseconds(1);
}

void Model::desktopsDockFileChanged(bool isRemoved) {
    waitsForFile_ = waitsForFile_ && !around_.platform.fileSystem.exists(around_.desktopsDock);
    if (!watchesFile || waitsForFile_)
        return;
    desktopsDockAnnounced();
    if (!isRemoved)
        return;
    watchesFile = false;
    retryWatchAt_ = now_ + nanoseconds(1);
}

void Model::settled(const std::optional<std::string>& bundleID) {
    if (bundleID)
        launching.erase(*bundleID);
    showTiles();
}

void Model::emit() {
    if (isManual())
        seed();
    if (!isEditing_)
        dropEditsUnlessCurrent();
    if (isManual()) {
        pinned_ = shownManualApps();
    } else if (lastMirror_.empty()) {
        line("mirror empty, using fallback list");
        pinned_ = fallback();
    } else {
        pinned_ = lastMirror_;
    }
    showTiles();
}

/// Only the first four of the well-known apps exist here.
std::vector<AppRef> Model::fallback() const {
    std::vector<AppRef> list;
    for (std::size_t i = 0; i < 4; ++i) {
        if (around_.isInCatalog(around_.apps[i]))
            list.push_back(around_.apps[i]);
    }
    return list;
}

std::vector<AppRef> Model::shownManualApps() const {
    std::vector<AppRef> list;
    for (const StoredApp& app : settings.manualApps) {
        const auto url = FileURL::fromPath(app.path);
        if (around_.platform.fileSystem.exists(url))
            list.push_back({app.bundleID, app.name, url});
    }
    return list;
}

void Model::seed() {
    if (!settings.manualApps.empty() || lastMirror_.empty())
        return;
    Settings seeded = settings;
    for (const AppRef& app : lastMirror_)
        seeded.manualApps.push_back({app.bundleID, app.name, app.url.path()});
    const std::string count = std::to_string(seeded.manualApps.size());
    write(seeded);
    line("manual list seeded from mirror, " + count + " apps");
}

void Model::adopt() {
    if (isManual())
        return;
    seed();
    if (settings.manualApps.empty())
        return;
    Settings adopted = settings;
    adopted.sourceMode = SourceMode::manual;
    write(adopted);
    line("list edited while mirroring: switched to manual, seeded");
}

void Model::addApp(const FileURL& url) {
    const Settings before = settings;
    const auto app = std::ranges::find(around_.apps, url, &AppRef::url);
    const bool isApp = app != around_.apps.end() && around_.isInCatalog(*app);
    isEditing_ = true;
    adopt();
    const bool isNew =
        isManual() && isApp &&
        std::ranges::count(settings.manualApps, app->bundleID, &StoredApp::bundleID) == 0;
    if (isNew) {
        Settings added = settings;
        added.manualApps.push_back({app->bundleID, app->name, url.path()});
        write(added);
        line("manual add " + app->bundleID);
    }
    isEditing_ = false;
    if (isNew)
        edited("Undo Adding ", {app->bundleID, app->name, {}}, before);
    else
        dropEditsUnlessCurrent();
}

void Model::removeApp(const std::string& bundleID) {
    if (!isManual())
        return;
    const Settings before = settings;
    Settings removed = settings;
    std::erase_if(removed.manualApps,
                  [&](const StoredApp& app) { return app.bundleID == bundleID; });
    isEditing_ = true;
    write(removed);
    isEditing_ = false;
    line("manual remove " + bundleID);
    const auto gone = std::ranges::find(before.manualApps, bundleID, &StoredApp::bundleID);
    if (gone != before.manualApps.end())
        edited("Undo Removing ", *gone, before);
}

/// `place` counts visible tiles; the list may also contain apps that are not installed any more.
/// The app's first entry, visible or not, moves to the place of the tile shown there.
void Model::moveApp(const std::string& bundleID, int place) {
    const Settings before = settings;
    isEditing_ = true;
    adopt();
    isEditing_ = false;
    dropEditsUnlessCurrent();
    if (!isManual())
        return;
    const auto& list = settings.manualApps;
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (around_.platform.fileSystem.exists(FileURL::fromPath(list[i].path)))
            shown.push_back(i);
    }
    const auto entry = std::ranges::find(list, bundleID, &StoredApp::bundleID);
    if (entry == list.end() || shown.empty())
        return;
    const auto from = static_cast<std::size_t>(entry - list.begin());
    const std::size_t target =
        shown[std::min(static_cast<std::size_t>(std::max(place, 0)), shown.size() - 1)];
    if (target == from)
        return;
    const StoredApp& moved = *entry;
    const std::string name = entry->name;
    Settings without = settings;
    without.manualApps.erase(without.manualApps.begin() + static_cast<std::ptrdiff_t>(from));
    Settings with = without;
    with.manualApps.insert(with.manualApps.begin() + static_cast<std::ptrdiff_t>(target), moved);
    isEditing_ = true;
    write(without);
    write(with);
    isEditing_ = false;
    line("manual move " + bundleID + " to " + std::to_string(target));
    edited("Undo Move of ", {bundleID, name, {}}, before);
}

void Model::edited(const std::string& title, const StoredApp& app, const Settings& before) {
    constexpr std::size_t kept = 10;
    if (settings.sourceMode == before.sourceMode && settings.manualApps == before.manualApps)
        return dropEditsUnlessCurrent();
    edits.push_back({title + app.name, app.bundleID, before, settings});
    if (edits.size() > kept)
        edits.erase(edits.begin());
}

void Model::dropEditsUnlessCurrent() {
    if (!edits.empty() && (edits.back().after.sourceMode != settings.sourceMode ||
                           edits.back().after.manualApps != settings.manualApps))
        edits.clear();
}

void Model::undo() {
    if (edits.empty())
        return;
    const Edit last = edits.back();
    edits.pop_back();
    Settings restored = settings;
    restored.sourceMode = last.before.sourceMode;
    restored.manualApps = last.before.manualApps;
    write(restored);
    line("manual undo " + last.bundleID);
}

/// The pinned apps, followed by running apps that are not pinned.
void Model::showTiles(const std::vector<RunningApplication>& apps) {
    std::vector<AppRef> running;
    for (const RunningApplication& app : apps) {
        if (app.activationPolicy == ActivationPolicy::regular && app.bundleID && app.bundleURL)
            running.push_back({*app.bundleID,
                               app.localizedName ? *app.localizedName : *app.bundleID,
                               *app.bundleURL});
    }
    std::vector<DockItem> merged;
    std::set<std::string> pinnedIDs;
    for (const AppRef& app : pinned_) {
        pinnedIDs.insert(app.bundleID);
        const bool isRunning = std::ranges::count(running, app.bundleID, &AppRef::bundleID) > 0;
        merged.push_back({app.bundleID, app.name, app.url, true, isRunning});
    }
    for (const AppRef& app : running) {
        if (!pinnedIDs.contains(app.bundleID))
            merged.push_back({app.bundleID, app.name, app.url, false, true});
    }
    if (merged == items)
        return;
    const TileCounts before = counts();
    items = std::move(merged);
    for (auto& [display, dock] : docks)
        dock.tilesAreStale = true;
    lookForAttention();
    // The length depends on the number of tiles, and on whether there is a separator before the
    // running ones.
    const TileCounts after = counts();
    if (before.pinned + before.unpinned != after.pinned + after.unpinned ||
        (before.unpinned > 0) != (after.unpinned > 0))
        reconcile();
}

}
