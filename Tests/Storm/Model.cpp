#include "Storm/Model.hpp"

#include <algorithm>
#include <utility>

namespace vireline::storm {

void Model::start() {
    if (fileIsDamaged && !around_.platform.fileSystem.readFailure) {
        line("preferences unreadable, using defaults (file kept)");
        settings = {};
    } else {
        settings =
            around_.platform.fileSystem.readFailure ? Settings{} : saved.value_or(Settings{});
    }
    runs_ = true;
    line("Vireline started pid=4711");
    guardAsSet();
    readMirror();
    watch();
    if (isManual())
        emit();
    showTiles();
    reconcile();
    readAnnouncements();
}

void Model::quit() {
    runs_ = false;
    edits.clear();
    items.clear();
    pinned_.clear();
    lastMirror_.clear();
    launching.clear();
    statuses.clear();
    marked.clear();
    asked_.clear();
    bobs_.clear();
    readAt_.reset();
    lastRead_.reset();
    docks.clear();
    bands.clear();
    guard = Guard::off;
    announcements_ = 0;
    watchesFile = false;
    mirrorAt_.reset();
    reconcileAt_.reset();
    retryWatchAt_.reset();
    pollAt_.reset();
    tapFailed_ = false;
}

int Model::restingTimers() const {
    const auto isWatched = [](const auto& dock) { return dock.second.isButtonDown; };
    return (retryWatchAt_ ? 1 : 0) + (pollAt_ ? 1 : 0) +
           static_cast<int>(std::ranges::count_if(docks, isWatched));
}

std::vector<Time> Model::dues() const {
    std::vector<Time> all;
    for (const auto& due : {mirrorAt_, reconcileAt_, retryWatchAt_, pollAt_, readAt_}) {
        if (due)
            all.push_back(*due);
    }
    for (const auto& [app, bob] : bobs_)
        all.push_back(bob.ends);
    for (const auto& [display, dock] : docks) {
        if (dock.hidesAt)
            all.push_back(*dock.hidesAt);
    }
    return all;
}

std::optional<Time> Model::nextDue() const {
    const auto all = dues();
    return all.empty() ? std::nullopt : std::optional{*std::ranges::min_element(all) - now_};
}

int Model::duesIn(Time duration) const {
    return static_cast<int>(std::ranges::count(dues(), now_ + duration));
}

void Model::pass(Time duration) {
    now_ += duration;
    const auto isDue = [this](std::optional<Time>& due) {
        return due && *due <= now_ ? std::exchange(due, std::nullopt).has_value() : false;
    };
    // If several timers are due at the same time, the one with the longest delay was started first.
    if (isDue(pollAt_)) {
        pollAt_ = now_ + pollEvery_;
        lookAtPermission();
    }
    std::erase_if(bobs_, [this](const auto& bob) { return bob.second.ends <= now_; });
    if (isDue(retryWatchAt_))
        watch();
    for (auto& [display, dock] : docks) {
        if (isDue(dock.hidesAt))
            dock.isIn = !dock.isHeld();
    }
    if (isDue(reconcileAt_))
        reconcile();
    if (isDue(mirrorAt_))
        readMirror();
    if (isDue(readAt_))
        readAnnouncements();
}

void Model::write(const Settings& changed) {
    if (changed == settings)
        return;
    settings = changed;
    save();
    settingsChanged();
}

void Model::save() {
    const auto& files = around_.platform.fileSystem;
    const auto& failure = files.folderFailure ? files.folderFailure : files.writeFailure;
    if (failure) {
        line("preferences save failed: " + failure->description);
        return;
    }
    saved = settings;
    fileIsDamaged = false;
    saves.push_back(settings);
}

void Model::settingsChanged() {
    guardAsSet();
    emit();
    reconcile();
}

void Model::guardAsSet() {
    if (!settings.anchorAppleDock) {
        pollAt_.reset();
        tapFailed_ = false;
        guard = Guard::off;
        line("anchor guard off");
    } else if (guard == Guard::active) {
        return;
    } else if (around_.platform.accessibility.trusted) {
        startTap();
    } else if (!pollAt_) {
        guard = Guard::waiting;
        ++prompts;
        line("anchor guard: requested Accessibility permission");
        lookEvery(2);
    }
}

void Model::lookEvery(double seconds) {
    pollEvery_ = nanoseconds(seconds);
    pollAt_ = now_ + pollEvery_;
}

void Model::lookAtPermission() {
    const bool isTrusted = around_.platform.accessibility.trusted;
    if (guard == Guard::active && !isTrusted)
        loseTap();
    else if (guard == Guard::waiting && isTrusted)
        startTap();
}

void Model::tapDisabled() {
    if (!around_.platform.accessibility.trusted)
        loseTap();
}

void Model::loseTap() {
    guard = Guard::waiting;
    line("anchor guard: Accessibility permission withdrawn");
    lookEvery(2);
}

void Model::startTap() {
    if (around_.platform.pointerTaps.failure) {
        guard = Guard::waiting;
        if (!std::exchange(tapFailed_, true))
            line("anchor guard: tap creation failed, staying in waiting state");
        return lookEvery(2);
    }
    guard = Guard::active;
    tapFailed_ = false;
    lookEvery(5);
    line("anchor guard active, " + std::to_string(bands.size()) + " zones");
}

void Model::screensAnnounced() {
    line("screen-params #" + std::to_string(++announcements_));
    reconcileAt_ = now_ + nanoseconds(0.5);
}

TileCounts Model::counts() const {
    const auto pinned = static_cast<int>(std::ranges::count_if(items, &DockItem::isPinned));
    return {pinned, static_cast<int>(items.size()) - pinned};
}

double Model::magnification() const {
    return settings.magnificationEnabled ? std::min(settings.magnification, 16.0) : 1;
}

}
