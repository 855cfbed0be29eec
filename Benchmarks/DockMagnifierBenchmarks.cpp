/// The cost of one pointer movement over a magnified dock.
#include "Layout/DockMagnifier.hpp"

#include <benchmark/benchmark.h>

namespace vireline {
namespace {

constexpr double iconSize = 44;
constexpr double magnification = 2;

DockOrdering::Counts countsOf(std::int64_t tiles) {
    const int utility = 2;
    const int running = static_cast<int>(tiles) / 4;
    return {.pinned = static_cast<int>(tiles) - running - utility,
            .unpinnedRunning = running,
            .utility = utility};
}

/// The complete layout of the tiles as a view computes it, including the allocation of the results.
void wholeLayout(benchmark::State& state) {
    const DockOrdering::Counts counts = countsOf(state.range(0));
    const double baseLength = DockOrdering::stripWidth(counts, iconSize);
    const double container =
        baseLength + DockMagnifier::maxExtraLength(counts.tiles(), iconSize, magnification);
    const double start = (container - baseLength) / 2;
    double cursor = 0;
    for ([[maybe_unused]] const auto _ : state) {
        // Move the pointer in every iteration.
        cursor = cursor < container ? cursor + 7 : 0;
        const auto base = DockMagnifier::baseCenters(counts, iconSize);
        const auto scales = DockMagnifier::scales(base, cursor - start, magnification,
                                                  DockMagnifier::radius(iconSize));
        const auto packed = DockMagnifier::packedCenters(base, scales, iconSize);
        const double length = DockMagnifier::packedLength(packed, scales, iconSize);
        double shift =
            DockMagnifier::anchoredShift(base, packed, {baseLength, length, container}, cursor);
        benchmark::DoNotOptimize(shift);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(wholeLayout)
    ->Arg(10)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Arg(400)
    ->Complexity(benchmark::oN);

}
}
