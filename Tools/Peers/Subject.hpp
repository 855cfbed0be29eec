/// One of the compared programs on a desktop of its own, with a home and a session bus that nothing
/// else uses, and what is measured of it. Its child processes count as itself, and so do the
/// services that it calls up on that bus.
#pragma once

#include "Peers/Peer.hpp"
#include "VirtualDesktop/ProcessFigures.hpp"

#include <chrono>
#include <memory>
#include <optional>

namespace vireline::desktop {

class Subject {
public:
    /// Processor time, milliseconds.
    struct Cost {
        double own = 0;
        double server = 0;
    };

    /// Megabytes.
    struct Memory {
        double resident = 0;
        double proportional = 0;
        double own = 0;
    };

    struct Rest {
        /// Milliseconds.
        double processorTime = 0;
        double wakeUps = 0;
    };

    explicit Subject(const Peer& peer);

    /// Milliseconds from the start of its process to its first dock on the screen.
    double start();
    void stop();

    [[nodiscard]] Memory memory() const;
    [[nodiscard]] Rest rest(std::chrono::seconds length) const;
    /// There and back over the launchers, twice.
    [[nodiscard]] Cost sweep(int steps) const;
    /// Windows that come and go one by one, of apps with a launcher and of others by turns.
    [[nodiscard]] Cost openWindows(int count) const;
    /// The second display becomes smaller and larger again.
    [[nodiscard]] Cost changeDisplays(int changes);
    /// By how many kilobytes its private memory grows while apps are started and ended.
    [[nodiscard]] double growth(int launches) const;

    /// Its processes.
    [[nodiscard]] std::vector<pid_t> own() const;
    [[nodiscard]] const std::string& name() const { return peer_.name; }
    /// Of both displays, with the pointer over the third launcher.
    [[nodiscard]] Picture picture() const;

private:
    [[nodiscard]] Cost spent() const;
    [[nodiscard]] Cost costSince(const Cost& before) const;
    void leaveDock() const;
    void launchAndEnd(std::span<const App> apps) const;
    void launchByTurns(int launches) const;

    Peer peer_;
    /// Those with a launcher come first.
    std::vector<App> apps_;
    std::unique_ptr<VirtualDesktop> desktop_;
    std::optional<ChildProcess> process_;
    PixelRect dock_;
};

}
