/// What apps announce, and that they want attention.
#include "Storm/World.hpp"

#include <array>

namespace vireline::storm {
namespace {

using test::Random;

const std::string& anyAppID(World& world, Random& random) {
    return world.around.apps.at(static_cast<std::size_t>(random.integer(0, 8))).bundleID;
}

/// The model learns of the announcement first, then the program.
void announceStatus(World& world, const std::string& app, const TileStatus& status) {
    auto& announcements = world.around.platform.announcements;
    if (status == TileStatus{}) {
        announcements.statuses.erase(app);
        world.model.announced();
        announcements.withdraw(app);
    } else {
        announcements.statuses[app] = status;
        world.model.announced();
        announcements.announce(app, status);
    }
}

TileStatus anyStatus(Random& random) {
    constexpr std::array<std::int64_t, 6> counts{1, 7, 99, 100, 101, 9'000'000'000'000};
    constexpr double hundredth = 100;
    TileStatus status;
    if (random.boolean())
        status.count = counts.at(static_cast<std::size_t>(random.integer(0, 5)));
    if (random.boolean())
        status.progress = random.integer(0, 100) / hundredth;
    status.isUrgent = random.integer(0, 2) == 0;
    return status;
}

void announceAny(World& world, Random& random) {
    const std::string& app = anyAppID(world, random);
    world.note(' ', app);
    announceStatus(world, app, anyStatus(random));
}

/// Many times a second, as a program may whose progress is quick.
void announceOften(World& world, Random& random) {
    const std::string& app = anyAppID(world, random);
    const int times = random.integer(2, 12);
    world.note(' ', app, ' ', times, " times");
    for (int i = 0; i < times; ++i) {
        announceStatus(world, app, anyStatus(random));
        world.pass(random.real(0, 0.009));
    }
}

/// A program ends that announced something about some apps.
void leaveTheBus(World& world, Random& random) {
    for (int i = random.integer(1, 4); i > 0; --i)
        announceStatus(world, anyAppID(world, random), {});
}

void demand(World& world, Random& random) {
    AppAttention attention;
    for (int i = random.integer(0, 3); i > 0; --i)
        attention.demanding.insert(anyAppID(world, random));
    if (random.boolean())
        attention.active = anyAppID(world, random);
    for (const std::string& app : attention.demanding)
        world.note(' ', app);
    world.note("; active: ", attention.active.value_or("none"));
    world.demandAttention(attention);
}

}

std::vector<Event> signalEvents() {
    return {{"an app announces something", 14, announceAny},
            {"an app announces much", 4, announceOften},
            {"announcements end", 5, leaveTheBus},
            {"apps demand attention", 10, demand}};
}

}
