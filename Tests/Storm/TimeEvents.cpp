/// Time, frames, idle periods, and the program's end and restart.
#include "Storm/World.hpp"

#include <array>

namespace vireline::storm {
namespace {

using test::Random;

void letTimePass(World& world, Random& random) {
    const double seconds = random.real(0, 0.4);
    world.note(' ', seconds, " s");
    world.pass(seconds);
}

/// Advances to just before or just after a timer's delay.
void passTimer(World& world, Random& random) {
    constexpr std::array timers{0.0, 0.1, 0.3, 0.4, 0.5, 0.6, 1.0, 2.0};
    constexpr std::array beside{-0.000'001, 0.0, 0.000'001};
    const double seconds =
        std::max(0.0, timers.at(static_cast<std::size_t>(random.integer(0, 7))) +
                          beside.at(static_cast<std::size_t>(random.integer(0, 2))));
    world.note(' ', seconds, " s");
    world.pass(seconds);
}

/// Advances to just before, or exactly to, the next due time.
void passToNext(World& world, Random& random) {
    const auto due = world.model.nextDue();
    if (!due || *due < 2)
        return;
    const Time left = *due - random.integer(0, 1);
    world.note(' ', static_cast<double>(left) / 1e9, " s");
    world.pass(static_cast<double>(left) / 1e9);
}

void showFrames(World& world, Random& /*random*/) {
    world.showFrames();
}

/// Plays some frames of an animation.
void animate(World& world, Random& random) {
    for (int i = random.integer(1, 8); i > 0; --i) {
        world.showFrames();
        world.pass(random.real(0, 0.05));
    }
}

void settle(World& world, Random& /*random*/) {
    world.settle();
}

void restart(World& world, Random& /*random*/) {
    world.restart();
}

}

std::vector<Event> timeEvents() {
    return {{"time passes", 30, letTimePass},
            {"a timer's time passes", 30, passTimer},
            {"the next is due", 20, passToNext},
            {"a frame", 40, showFrames},
            {"frames", 30, animate},
            {"rest", 4, settle},
            {"the program starts again", 1, restart}};
}

}
