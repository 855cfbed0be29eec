/// The real adapters that the contract tests use on macOS, and the run loop that they need.
#pragma once

#include "App/MainRunLoop.hpp"
#include "Files/DispatchFileEvents.hpp"
#include "Files/FoundationFileSystem.hpp"

#include <CoreFoundation/CoreFoundation.h>

#include <chrono>
#include <functional>

namespace vireline::test {

using HostFileEvents = macos::DispatchFileEvents;
using HostFileSystem = macos::FoundationFileSystem;
using HostRunLoop = macos::MainRunLoop;

/// Whether a watch can be opened on a file that does not exist yet.
inline constexpr bool hostWaitsForMissingFiles = false;

inline void prepareHost() {}

/// Runs the main run loop until `condition` holds; returns false after ten seconds.
inline bool waitUntil(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds{10};
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        constexpr double longestTurn = 0.01;
        CFRunLoopRunInMode(kCFRunLoopDefaultMode, longestTurn, 1);
    }
    return true;
}

/// The kernel reports file events with a short delay.
inline void deliverPendingEvents() {
    constexpr double moment = 0.1;
    CFRunLoopRunInMode(kCFRunLoopDefaultMode, moment, 0);
}

}
