#include "Sources/PathWatcher.hpp"

#include <utility>

namespace vireline {

PathWatcher::PathWatcher(FileURL url, FileEvents& fileEvents, RunLoop& runLoop,
                         std::function<void()> onChange)
    : url_(std::move(url))
    , fileEvents_(fileEvents)
    , runLoop_(runLoop)
    , onChange_(std::move(onChange)) {}

void PathWatcher::start() {
    auto source =
        fileEvents_.watch(url_, lifetime_.guard([this](FileEventSet events) { handle(events); }));
    if (source)
        source_ = *std::move(source);
    else
        retryLater();
}

void PathWatcher::handle(FileEventSet events) {
    onChange_();
    if (!events.removed)
        return;
    // The path may now refer to another file, or may do so soon, so the watch has to be set up
    // again.
    source_.reset();
    retryLater();
}

void PathWatcher::retryLater() {
    retry_ = runLoop_.after(retryDelay, lifetime_.guard([this] { start(); }));
}

}
