#include "Sources/AppSourceResolver.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/Files/FileSystem.hpp"
#include "Sources/RunningAppsMonitor.hpp"

#include <algorithm>
#include <utility>

namespace vireline {

AppSourceResolver::AppSourceResolver(PreferencesStore& store, const Platform& platform)
    : store_(store)
    , catalog_(platform.catalog)
    , fileSystem_(platform.fileSystem)
    , mirror_(platform) {}

void AppSourceResolver::start() {
    mirror_.onChange = lifetime_.guard([this](const std::vector<AppRef>& apps) {
        lastMirror_ = apps;
        if (isMirroring())
            emit();
    });
    mirror_.start();
    // In manual mode the mirror's first reading is not delivered, so deliver the user's own list
    // here.
    if (!isMirroring())
        emit();
}

void AppSourceResolver::emit() {
    if (!isMirroring())
        seedIfNeeded();
    if (!isEditing_)
        history_.compare(PinnedListState::of(store_.settings()));
    const auto apps = isMirroring() ? mirrorList() : manualList();
    if (onChange)
        onChange(apps);
}

std::vector<AppRef> AppSourceResolver::mirrorList() const {
    if (!lastMirror_.empty())
        return lastMirror_;
    DevLog::write("mirror empty, using fallback list");
    return TemporaryPinnedSource::load(catalog_);
}

std::vector<AppRef> AppSourceResolver::manualList() const {
    std::vector<AppRef> apps;
    for (const StoredApp& app : store_.settings().manualApps) {
        if (isShown(app))
            apps.push_back({app.bundleID, app.name, FileURL::fromPath(app.path)});
    }
    return apps;
}

bool AppSourceResolver::isShown(const StoredApp& app) const {
    // The path comes from a file that may have been edited by hand, so it may not be absolute.
    return app.path.starts_with('/') && fileSystem_.exists(FileURL::fromPath(app.path));
}

std::vector<std::ptrdiff_t> AppSourceResolver::shownPlaces() const {
    std::vector<std::ptrdiff_t> places;
    std::ptrdiff_t place = 0;
    for (const StoredApp& app : store_.settings().manualApps) {
        if (isShown(app))
            places.push_back(place);
        ++place;
    }
    return places;
}

bool AppSourceResolver::isMirroring() const {
    return store_.settings().sourceMode == SourceMode::mirror;
}

std::optional<StoredApp> AppSourceResolver::manualEntry(const FileURL& url) const {
    if (url.pathExtension() != catalog_.bundleExtension())
        return std::nullopt;
    const auto bundleID = catalog_.bundleIdentifier(url);
    if (!bundleID)
        return std::nullopt;
    return StoredApp{*bundleID, catalog_.displayName(url), url.path()};
}

void AppSourceResolver::setManualApps(std::vector<StoredApp> apps) {
    Settings settings = store_.settings();
    settings.manualApps = std::move(apps);
    store_.setSettings(std::move(settings));
}

void AppSourceResolver::seedIfNeeded() {
    if (!store_.settings().manualApps.empty() || lastMirror_.empty())
        return;
    std::vector<StoredApp> seeded;
    seeded.reserve(lastMirror_.size());
    for (const AppRef& app : lastMirror_)
        seeded.push_back({app.bundleID, app.name, app.url.path()});
    const std::string count = std::to_string(seeded.size());
    setManualApps(std::move(seeded));
    DevLog::write("manual list seeded from mirror, " + count + " apps");
}

void AppSourceResolver::adoptManualIfMirroring() {
    if (!isMirroring())
        return;
    seedIfNeeded();
    Settings settings = store_.settings();
    if (settings.manualApps.empty())
        return;
    settings.sourceMode = SourceMode::manual;
    store_.setSettings(std::move(settings));
    DevLog::write("list edited while mirroring: switched to manual, seeded");
}

// Writing the settings may destroy what the arguments of the functions below refer to, such as the
// tile that was clicked. So the arguments are not used after that.

void AppSourceResolver::addManualApp(const FileURL& url) {
    edit(ListEdit::Kind::add, [&] { return addToList(url); });
}

void AppSourceResolver::removeManualApp(const std::string& bundleID) {
    edit(ListEdit::Kind::remove, [&] { return removeFromList(bundleID); });
}

void AppSourceResolver::moveManualApp(std::string_view bundleID, int toIndex) {
    edit(ListEdit::Kind::move, [&] { return moveInList(bundleID, toIndex); });
}

void AppSourceResolver::edit(ListEdit::Kind kind,
                             const std::function<std::optional<StoredApp>()>& change) {
    auto before = PinnedListState::of(store_.settings());
    isEditing_ = true;
    const auto changed = change();
    isEditing_ = false;
    auto after = PinnedListState::of(store_.settings());
    // An edit may switch to the manual list although there was nothing else to change.
    if (changed && after != before)
        history_.record({kind, changed->bundleID, changed->name}, std::move(before),
                        std::move(after));
    else
        history_.compare(after);
}

std::optional<std::string> AppSourceResolver::undoTitle() const {
    const ListEdit* const last = history_.last();
    return last == nullptr ? std::nullopt : std::optional{vireline::undoTitle(*last)};
}

void AppSourceResolver::undo() {
    const ListEdit* const last = history_.last();
    if (last == nullptr)
        return;
    const std::string line = "manual undo " + last->bundleID;
    auto before = history_.takeLast();
    Settings settings = store_.settings();
    settings.sourceMode = before.sourceMode;
    settings.manualApps = std::move(before.apps);
    store_.setSettings(std::move(settings));
    DevLog::write(line);
}

std::optional<StoredApp> AppSourceResolver::addToList(const FileURL& url) {
    auto added = manualEntry(url);
    adoptManualIfMirroring();
    if (isMirroring() || !added)
        return std::nullopt;
    auto apps = store_.settings().manualApps;
    if (std::ranges::find(apps, added->bundleID, &StoredApp::bundleID) != apps.end())
        return std::nullopt;
    apps.push_back(*added);
    setManualApps(std::move(apps));
    DevLog::write("manual add " + added->bundleID);
    return added;
}

std::optional<StoredApp> AppSourceResolver::removeFromList(const std::string& bundleID) {
    if (isMirroring())
        return std::nullopt;
    const std::string line = "manual remove " + bundleID;
    auto apps = store_.settings().manualApps;
    const auto found = std::ranges::find(apps, bundleID, &StoredApp::bundleID);
    auto removed = found == apps.end() ? std::nullopt : std::optional{*found};
    std::erase_if(apps, [&](const StoredApp& app) { return app.bundleID == bundleID; });
    setManualApps(std::move(apps));
    DevLog::write(line);
    return removed;
}

std::optional<StoredApp> AppSourceResolver::moveInList(std::string_view bundleID, int toIndex) {
    const std::string moving{bundleID};
    adoptManualIfMirroring();
    auto apps = store_.settings().manualApps;
    const auto places = shownPlaces();
    const auto found = std::ranges::find(apps, moving, &StoredApp::bundleID);
    if (isMirroring() || found == apps.end() || places.empty())
        return std::nullopt;
    const auto target = std::clamp<std::ptrdiff_t>(toIndex, 0, std::ssize(places) - 1);
    const std::ptrdiff_t to = places[static_cast<std::size_t>(target)];
    if (to == found - apps.begin())
        return std::nullopt;
    StoredApp moved = std::move(*found);
    apps.erase(found);
    // Each of the two writes is saved and announced: the docks see the app disappear before it
    // reappears in its new place.
    setManualApps(apps);
    apps.insert(apps.begin() + to, moved);
    setManualApps(std::move(apps));
    DevLog::write("manual move " + moving + " to " + std::to_string(to));
    return moved;
}

}
