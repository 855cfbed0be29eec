/// The random events of a soak, one at a time.
#pragma once

#include "Soak/SoakWorld.hpp"

#include <functional>
#include <span>

namespace vireline::desktop {

struct SoakStep {
    const char* name;
    /// How often it occurs relative to the others.
    int weight;
    /// Performs it, and waits for its effects.
    std::function<void(SoakWorld&)> run;
};

[[nodiscard]] std::span<const SoakStep> soakSteps();

/// Opens everything once whose resources the program then keeps: its settings, a menu, an app's
/// tile.
void warmUp(SoakWorld& world);

}
