/// What may happen on a desktop: one random thing at a time.
#pragma once

#include "Soak/SoakWorld.hpp"

#include <functional>
#include <span>

namespace vireline::desktop {

struct SoakStep {
    const char* name;
    /// How often it comes, beside the others.
    int weight;
    /// Does it, and waits for what must come of it.
    std::function<void(SoakWorld&)> run;
};

[[nodiscard]] std::span<const SoakStep> soakSteps();

/// Opens, once, everything of the program's that then stays: its settings, a menu, an app's tile.
void warmUp(SoakWorld& world);

}
