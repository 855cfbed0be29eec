/// The real adapters that the contract tests use on Linux.
#pragma once

#include "Files/PosixFileSystem.hpp"
#include "Files/Watching/InotifyFileEvents.hpp"
#include "Linux/EventLoop.hpp"
#include "Toolkit/QtRunLoop.hpp"

namespace vireline::test {

using HostFileEvents = xdg::InotifyFileEvents;
using HostFileSystem = xdg::PosixFileSystem;
using HostRunLoop = xdg::QtRunLoop;

/// Whether a watch can be opened on a file that does not exist yet.
inline constexpr bool hostWaitsForMissingFiles = true;

inline void prepareHost() {
    testApplication();
}

}
