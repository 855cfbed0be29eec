/// Cuts a failing course down to few steps, and tells of it.
#pragma once

#include "Storm/Episode.hpp"

#include <string>

namespace vireline::storm {

struct Find {
    Episode episode;
    Failure failure;
};

/// Leaves out steps, in ever smaller pieces, for as long as it fails the same way. Bounded: the
/// least course is not promised.
[[nodiscard]] Find shrunk(const Find& find, int mostRuns = 400);

/// Seed, steps, what happens in them, what is wrong, and how to see it again.
[[nodiscard]] std::string report(const Find& find);

}
