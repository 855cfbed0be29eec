#include "Support/FakeRunLoop.hpp"

#include "Foundation/Require.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::test {
namespace {

constexpr double nanosecondsPerSecond = 1e9;

/// A loop with this many turns in one advance is treated as endless.
constexpr int mostTurns = 1'000'000;

std::int64_t nanoseconds(double seconds) {
    require(seconds >= 0 && std::isfinite(seconds), "a delay is a number of seconds from 0");
    return std::llround(seconds * nanosecondsPerSecond);
}

}

double FakeRunLoop::now() const {
    return static_cast<double>(now_) / nanosecondsPerSecond;
}

Timer FakeRunLoop::after(double seconds, std::function<void()> fire) {
    return add(nanoseconds(seconds), 0, std::move(fire));
}

Timer FakeRunLoop::every(double seconds, std::function<void()> fire) {
    const Nanoseconds interval = nanoseconds(seconds);
    require(interval > 0, "a repeating timer needs an interval");
    return add(interval, interval, std::move(fire));
}

Timer FakeRunLoop::add(Nanoseconds delay, Nanoseconds interval, std::function<void()> fire) {
    auto entry = std::make_shared<Entry>(now_ + delay, interval, std::move(fire));
    entries_.push_back(entry);
    return Timer{std::move(entry)};
}

void FakeRunLoop::advance(double seconds) {
    require(!advancing_, "time is not advanced from within a timer");
    advancing_ = true;
    const Nanoseconds until = now_ + nanoseconds(seconds);
    int turns = 0;
    while (const auto entry = nextDue(until)) {
        require(++turns < mostTurns, "the run loop comes to rest");
        now_ = entry->due;
        if (entry->interval > 0)
            entry->due += entry->interval;
        else
            std::erase_if(entries_, [&](const auto& other) { return other.lock() == entry; });
        entry->fire();
    }
    now_ = until;
    advancing_ = false;
}

std::shared_ptr<FakeRunLoop::Entry> FakeRunLoop::nextDue(Nanoseconds until) {
    std::erase_if(entries_, [](const auto& entry) { return entry.expired(); });
    std::shared_ptr<Entry> next;
    for (const auto& candidate : entries_) {
        const auto entry = candidate.lock();
        if (entry->due <= until && (!next || entry->due < next->due))
            next = entry;
    }
    return next;
}

int FakeRunLoop::pendingTimers() const {
    return static_cast<int>(
        std::ranges::count_if(entries_, [](const auto& entry) { return !entry.expired(); }));
}

}
