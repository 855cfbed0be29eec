#include "Sources/TileSignals.hpp"

#include "Model/DockViewModel.hpp"
#include "Platform/Applications/LauncherAnnouncements.hpp"
#include "Platform/Applications/RunningApplications.hpp"
#include "Platform/RunLoop.hpp"

#include <algorithm>
#include <utility>

namespace vireline {

TileSignals::TileSignals(LauncherAnnouncements* announcements, RunningApplications& applications,
                         RunLoop& runLoop, DockViewModel& model)
    : announcements_(announcements)
    , applications_(applications)
    , runLoop_(runLoop)
    , model_(model) {}

void TileSignals::start() {
    const auto looked = lifetime_.guard([this] { lookForAttention(); });
    attentionChanges_ = applications_.observeAttention(looked);
    // An app that has ended wants nothing any more.
    itemChanges_ = model_.items.observe(looked);
    if (announcements_ != nullptr) {
        announced_ = announcements_->observe(lifetime_.guard([this] { announced(); }));
        read();
    } else {
        lookForAttention();
    }
}

void TileSignals::announced() {
    const double pause = lastRead_ ? *lastRead_ + shortestPause - runLoop_.now() : 0;
    if (pause <= 0)
        return read();
    if (!reading_)
        reading_ = runLoop_.after(pause, lifetime_.guard([this] { read(); }));
}

void TileSignals::read() {
    reading_.reset();
    lastRead_ = runLoop_.now();
    model_.statuses.set(announcements_->current());
    lookForAttention();
}

void TileSignals::lookForAttention() {
    const AppAttention windows = applications_.attention();
    Attention::Facts now{.asking = windows.demanding, .present = {}, .active = windows.active};
    for (const auto& [app, status] : model_.statuses.get()) {
        now.present.insert(app);
        if (status.isUrgent)
            now.asking.insert(app);
    }
    for (const DockItem& item : model_.items.get()) {
        if (item.isRunning)
            now.present.insert(item.id);
    }
    attention_ = Attention::next(attention_, now);
    for (const std::string& app : attention_.marked) {
        if (!model_.marked.get().contains(app))
            bob(app);
    }
    std::erase_if(bobbing_, [this](const auto& bobbing) {
        return !attention_.marked.contains(bobbing.first);
    });
    model_.marked.set(attention_.marked);
    std::set<std::string> bobbing;
    for (const auto& [app, timer] : bobbing_)
        bobbing.insert(app);
    model_.bobbing.set(std::move(bobbing));
}

void TileSignals::bob(const std::string& app) {
    bobbing_[app] = runLoop_.after(bobbingSeconds, lifetime_.guard([this, app] {
        bobbing_.erase(app);
        auto bobbing = model_.bobbing.get();
        bobbing.erase(app);
        model_.bobbing.set(std::move(bobbing));
    }));
}

}
