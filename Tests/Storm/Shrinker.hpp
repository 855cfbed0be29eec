/// Reduces a failing sequence to few steps, and reports it.
#pragma once

#include "Storm/Episode.hpp"

#include <string>

namespace vireline::storm {

struct Find {
    Episode episode;
    Failure failure;
};

/// Removes steps, in ever smaller chunks, while the sequence still fails in the same way. Bounded,
/// so the result may not be minimal.
[[nodiscard]] Find shrunk(const Find& find, int mostRuns = 400);

/// The seed, the steps, what happens in them, what is wrong, and how to reproduce it.
[[nodiscard]] std::string report(const Find& find);

}
