/// What apps announce, and which of them want attention.
#include "Storm/Model.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::storm {
namespace {

/// Announcements are read no more often than this.
constexpr Time readingPause = 16'000'000;
constexpr Time bobbing = 1'800'000'000;

}

void Model::announced() {
    if (readAt_)
        return;
    if (lastRead_ && now_ - *lastRead_ < readingPause)
        readAt_ = *lastRead_ + readingPause;
    else
        readAnnouncements();
}

void Model::readAnnouncements() {
    readAt_.reset();
    lastRead_ = now_;
    statuses = around_.platform.announcements.statuses;
    lookForAttention();
}

void Model::attentionChanged(const AppAttention& attention) {
    attention_ = attention;
    lookForAttention();
}

bool Model::isPresent(const std::string& app) const {
    return statuses.contains(app) || std::ranges::any_of(items, [&](const DockItem& item) {
               return item.id == app && item.isRunning;
           });
}

/// Only an app that did not ask before is marked, so that one that was active once is not marked
/// for the same request again.
void Model::lookForAttention() {
    // At its start, the program looks once, at the end.
    if (!lastRead_)
        return;
    std::map<std::string, bool> asks;
    for (const std::string& app : marked)
        asks[app] = false;
    for (const auto& [app, status] : statuses)
        asks[app] = status.isUrgent;
    for (const std::string& app : attention_.demanding)
        asks[app] = true;
    for (const auto& [app, isAsking] : asks) {
        const bool wasMarked = marked.contains(app);
        const bool begins = isAsking && !asked_.contains(app);
        const bool isMarked = (wasMarked || begins) && isPresent(app) && attention_.active != app;
        if (isMarked && !wasMarked) {
            marked.insert(app);
            bobs_[app] = {now_ + bobbing, !around_.platform.motionSettings.reduces};
        } else if (!isMarked) {
            marked.erase(app);
            bobs_.erase(app);
        }
    }
    asked_.clear();
    for (const auto& [app, isAsking] : asks) {
        if (isAsking)
            asked_.insert(app);
    }
}

void Model::motionChanged() {
    for (auto& [app, bob] : bobs_)
        bob.isSeen = false;
}

bool Model::bobsVisibly() const {
    return std::ranges::any_of(items, [this](const DockItem& item) {
        const auto bob = bobs_.find(item.id);
        return bob != bobs_.end() && bob->second.isSeen;
    });
}

std::string Model::valueOf(const DockItem& item) const {
    std::string value = item.isRunning ? "running" : "not running";
    if (const auto found = statuses.find(item.id); found != statuses.end()) {
        const TileStatus& status = found->second;
        if (status.count)
            value += ", badge " + std::to_string(*status.count);
        // Storms announce whole percents.
        if (status.progress)
            value += ", " + std::to_string(std::lround(*status.progress * 100)) + " percent";
    }
    return marked.contains(item.id) ? value + ", wants attention" : value;
}

}
