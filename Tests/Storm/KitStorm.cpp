// Random events on the fake platform and its virtual clock.
#include "Storm/Episode.hpp"
#include "Storm/World.hpp"

#include <memory>

namespace vireline::storm {

/// Each step is reported before it is performed: if the process crashes, the last one is the
/// culprit.
std::optional<std::string> live(const Episode& episode, const Tell& tell) {
    const auto world = std::make_unique<World>(episode.seed);
    for (const int step : episode.steps) {
        if (world->failure())
            break;
        world->perform(step);
        tell(world->story().back());
    }
    if (!world->failure())
        world->end();
    return world->failure();
}

std::string commandToRepeat() {
    return "script/storm";
}

}
