/// One of the compared programs on a separate desktop, with its own home folder and session bus,
/// and the measurements of it. Child processes, and services that it starts through that bus, count
/// as part of it.
#pragma once

#include "Peers/Peer.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"

#include <chrono>
#include <memory>
#include <optional>

namespace vireline::desktop {

class Subject {
public:
    /// Processor time in milliseconds.
    struct Cost {
        double own = 0;
        double server = 0;
    };

    /// In megabytes.
    struct Memory {
        double resident = 0;
        double proportional = 0;
        double own = 0;
    };

    struct Rest {
        /// In milliseconds.
        double processorTime = 0;
        double wakeUps = 0;
    };

    explicit Subject(const Peer& peer);

    /// Milliseconds from the start of its process until its first dock, or where those are watched
    /// its first pixels, are on the screen.
    double start();
    void stop();

    [[nodiscard]] Memory memory() const;
    [[nodiscard]] Rest rest(std::chrono::seconds length) const;
    /// Moves the pointer over the launchers and back, twice.
    [[nodiscard]] Cost sweep(int steps) const;
    /// Opens and closes windows one by one, alternating between apps with and without a launcher.
    [[nodiscard]] Cost openWindows(int count) const;
    /// Makes the second display smaller and larger again.
    [[nodiscard]] Cost changeDisplays(int changes);
    /// The growth of its private memory in kilobytes while apps are started and ended.
    [[nodiscard]] double growth(int launches) const;

    /// Its processes.
    [[nodiscard]] std::vector<pid_t> own() const;
    [[nodiscard]] const std::string& name() const { return peer_.name; }
    /// A picture of both displays, with the pointer over the third launcher.
    [[nodiscard]] Picture picture() const;

private:
    [[nodiscard]] Cost spent() const;
    [[nodiscard]] Cost costSince(const Cost& before) const;
    [[nodiscard]] bool isOnX() const { return !peer_.isOnSway; }
    void startProcess();
    /// Starts the process at `start`, and returns when its first pixels were there.
    [[nodiscard]] std::chrono::steady_clock::time_point
    waitForFirstPixels(std::chrono::steady_clock::time_point& start);
    [[nodiscard]] PixelRect frameOfDock() const;
    /// The X server, or the compositor.
    [[nodiscard]] pid_t server() const;
    void openWaylandWindows(int count) const;
    void openXWindows(int count) const;
    void leaveDock() const;
    void launchAndEnd(std::span<const App> apps) const;
    void launchByTurns(int launches) const;

    Peer peer_;
    /// Apps with a launcher come first.
    std::vector<App> apps_;
    std::unique_ptr<VirtualDesktop> desktop_;
    std::optional<ChildProcess> process_;
    PixelRect dock_;
};

}
