/// Watches the file at a path, also after it has been replaced, or deleted and created again.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Files/FileEvents.hpp"
#include "Platform/RunLoop.hpp"

#include <functional>

namespace vireline {

class PathWatcher : private NonCopyable {
public:
    /// Seconds between the loss of the file, or a failure to watch it, and the next attempt.
    static constexpr double retryDelay = 1.0;

    /// `onChange` is called for every batch of events of the file, but not when it reappears.
    PathWatcher(FileURL url, FileEvents& fileEvents, RunLoop& runLoop,
                std::function<void()> onChange);

    void start();

private:
    void handle(FileEventSet events);
    void retryLater();

    FileURL url_;
    FileEvents& fileEvents_;
    RunLoop& runLoop_;
    std::function<void()> onChange_;
    /// Set while the file is watched.
    Subscription source_;
    Timer retry_;
    Lifetime lifetime_;
};

}
