// A storm's episode on the fake platform and its virtual clock.
#include "Storm/Episode.hpp"
#include "Storm/World.hpp"

#include <memory>

namespace vireline::storm {

/// Steps are told before the next one is taken: the last one of a process that died is the one.
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
