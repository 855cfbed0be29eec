#include "Sources/LauncherEntries.hpp"

#include <algorithm>
#include <cmath>

namespace vireline {

bool LauncherEntries::update(const std::string& sender, const std::string& app,
                             const Update& update) {
    if (app.empty() || app.size() > maximumNameBytes)
        return false;
    const bool isNew = !senders_.contains(sender);
    if (isNew && senders_.size() == maximumSenders)
        return false;
    auto& entries = senders_[sender];
    if (!entries.contains(app) && entries.size() == maximumApps)
        return false;
    Entry& entry = entries[app];
    entry.turn = ++turns_;
    entry.count = update.count.value_or(entry.count);
    entry.isCountVisible = update.isCountVisible.value_or(entry.isCountVisible);
    entry.progress = update.progress.value_or(entry.progress);
    entry.isProgressVisible = update.isProgressVisible.value_or(entry.isProgressVisible);
    entry.isUrgent = update.isUrgent.value_or(entry.isUrgent);
    return isNew;
}

std::map<std::string, TileStatus> LauncherEntries::statuses() const {
    std::map<std::string, const Entry*> latest;
    for (const auto& [sender, entries] : senders_) {
        for (const auto& [app, entry] : entries) {
            const Entry*& best = latest[app];
            if (best == nullptr || best->turn < entry.turn)
                best = &entry;
        }
    }
    std::map<std::string, TileStatus> statuses;
    for (const auto& [app, entry] : latest) {
        if (const TileStatus status = entry->status(); status != TileStatus{})
            statuses.emplace(app, status);
    }
    return statuses;
}

TileStatus LauncherEntries::Entry::status() const {
    TileStatus status;
    if (isCountVisible && count > 0)
        status.count = count;
    if (isProgressVisible)
        status.progress = std::isnan(progress) ? 0.0 : std::clamp(progress, 0.0, 1.0);
    status.isUrgent = isUrgent;
    return status;
}

}
