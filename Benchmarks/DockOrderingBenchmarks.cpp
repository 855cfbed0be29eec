/// Merging pinned and running apps, which happens whenever an app launches or exits.
#include "Model/DockOrdering.hpp"

#include <benchmark/benchmark.h>

#include <string>

namespace vireline {
namespace {

/// `count` apps with identifiers of typical length, numbered from `first` on.
std::vector<AppRef> apps(std::int64_t first, std::int64_t count) {
    std::vector<AppRef> made;
    for (std::int64_t i = first; i < first + count; ++i) {
        const std::string number = std::to_string(i);
        made.push_back({"org.example.application.Number" + number, "Application " + number,
                        FileURL::fromPath("/usr/share/applications/org.example.application.Number" +
                                          number + ".desktop")});
    }
    return made;
}

/// Every second running app is pinned.
void merge(benchmark::State& state) {
    const std::int64_t count = state.range(0);
    const auto pinned = apps(0, count);
    const auto running = apps(count / 2, count);
    for ([[maybe_unused]] const auto _ : state) {
        auto items = DockOrdering::merge(pinned, running);
        benchmark::DoNotOptimize(items.data());
    }
    state.SetComplexityN(count);
}
BENCHMARK(merge)
    ->Arg(10)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Arg(400)
    ->Arg(4000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

}
}
