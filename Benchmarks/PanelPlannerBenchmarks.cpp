/// Planning all panels, which happens whenever the displays, the settings or the number of tiles
/// change.
#include "Layout/PanelPlanner.hpp"

#include <benchmark/benchmark.h>

namespace vireline {
namespace {

/// `count` displays side by side, and a first one that holds the desktop's own dock.
std::vector<ScreenSnapshot> displays(std::int64_t count) {
    std::vector<ScreenSnapshot> screens;
    for (std::int64_t i = 0; i <= count; ++i) {
        const double width = 1280 + 64 * static_cast<double>(i);
        const Rect frame{static_cast<double>(i) * 4000, 0, width, 1440};
        screens.push_back(
            {.id = static_cast<std::uint32_t>(i), .frame = frame, .visibleFrame = frame});
    }
    screens.front().visibleFrame.y += 70;
    return screens;
}

void desiredPanels(benchmark::State& state) {
    const auto screens = displays(state.range(0));
    const PanelPlanner::Request request{.counts = {.pinned = 30, .unpinnedRunning = 8},
                                        .maxIconSize = 64,
                                        .magnification = 2,
                                        .hiddenDisplays = {}};
    for ([[maybe_unused]] const auto _ : state) {
        auto panels = PanelPlanner::desiredPanels(screens, request);
        benchmark::DoNotOptimize(panels.data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(desiredPanels)->RangeMultiplier(2)->Range(1, 64)->Complexity(benchmark::oN);

}
}
