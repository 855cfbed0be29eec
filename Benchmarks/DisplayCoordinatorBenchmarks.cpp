/// The cost of all docks together, by the number of displays and of tiles: new frames when displays
/// change, and new scenes when tiles change.
#include "Displays/DisplayCoordinator.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Support/DockFixture.hpp"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace vireline {
namespace {

/// Discards the program's log, which would go to standard output like the benchmarks' report.
class QuietOutput : private NonCopyable {
public:
    QuietOutput() : kept_(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        const int devNull = open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (devNull < 0)
            return;
        dup2(devNull, STDOUT_FILENO);
        close(devNull);
    }
    ~QuietOutput() {
        std::fflush(stdout);
        if (kept_ < 0)
            return;
        dup2(kept_, STDOUT_FILENO);
        close(kept_);
    }

private:
    int kept_;
};

/// Docks on this many displays, besides the one that holds the desktop's own.
class Docks {
public:
    Docks(std::int64_t displays, std::int64_t tiles) : displays_(displays) {
        setTiles(tiles);
        arrange(false);
        coordinator.start();
    }

    /// Every fourth app is running and not pinned.
    void setTiles(std::int64_t tiles) {
        constexpr int utility = 2;
        const int apps = static_cast<int>(tiles) - utility;
        dock.setTiles(apps - apps / 4, apps / 4);
    }

    /// Narrows the displays, which moves every dock.
    void arrange(bool isNarrow) {
        const double width = isNarrow ? 1600 : 1920;
        auto& list = dock.platform.screens.list;
        list = {test::screenWithDock(1, {0, 0, width, 1080})};
        for (std::int64_t i = 1; i <= displays_; ++i)
            list.push_back(test::screenAt(static_cast<std::uint32_t>(i + 1),
                                          {2000.0 * static_cast<double>(i), 0, width, 1080}));
    }

    /// The next frame of all displays, for which every dock builds its scene.
    void showFrame() {
        constexpr double framesPerSecond = 60;
        dock.platform.runLoop.advance(1 / framesPerSecond);
        for (const auto& panel : dock.platform.panelWindows.made) {
            panel->nextFrame();
            // The fake windows record everything that happens to them.
            panel->frameChanges.clear();
        }
    }

    QuietOutput quiet;
    test::DockFixture dock;
    DisplayCoordinator coordinator{dock.context(), dock.platform.screens,
                                   dock.platform.panelWindows};

private:
    std::int64_t displays_;
};

void reconcile(benchmark::State& state, std::int64_t displays, std::int64_t tiles) {
    Docks docks{displays, tiles};
    bool isNarrow = false;
    for ([[maybe_unused]] const auto _ : state) {
        isNarrow = !isNarrow;
        docks.arrange(isNarrow);
        docks.coordinator.reconcile();
        docks.showFrame();
    }
    state.SetComplexityN(state.range(0));
}

void reconcileByDisplays(benchmark::State& state) {
    constexpr std::int64_t tiles = 20;
    reconcile(state, state.range(0), tiles);
}
BENCHMARK(reconcileByDisplays)
    ->RangeMultiplier(2)
    ->Range(1, 16)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

void reconcileByTiles(benchmark::State& state) {
    constexpr std::int64_t displays = 2;
    reconcile(state, displays, state.range(0));
}
BENCHMARK(reconcileByTiles)
    ->Arg(10)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Arg(400)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

/// An app starts or exits, so every dock gets or loses a tile.
void changeTiles(benchmark::State& state, std::int64_t displays, std::int64_t tiles) {
    Docks docks{displays, tiles};
    bool hasMore = false;
    for ([[maybe_unused]] const auto _ : state) {
        hasMore = !hasMore;
        docks.setTiles(tiles + (hasMore ? 1 : 0));
        docks.coordinator.reconcile();
        docks.showFrame();
    }
    state.SetComplexityN(state.range(0));
}

void changeTilesByDisplays(benchmark::State& state) {
    constexpr std::int64_t tiles = 20;
    changeTiles(state, state.range(0), tiles);
}
BENCHMARK(changeTilesByDisplays)
    ->RangeMultiplier(2)
    ->Range(1, 16)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

void changeTilesByTiles(benchmark::State& state) {
    constexpr std::int64_t displays = 2;
    changeTiles(state, displays, state.range(0));
}
BENCHMARK(changeTilesByTiles)
    ->Arg(10)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Arg(400)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

}
}
