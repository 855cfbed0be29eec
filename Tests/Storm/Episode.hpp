/// Runs a sequence of random steps in a separate process, so that crashes can be reported and
/// reduced like other failures.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::storm {

struct Episode {
    unsigned seed = 0;
    /// The numbers of the steps, in order.
    std::vector<int> steps;
};

struct Failure {
    /// Identifies the kind of failure, as far as possible.
    std::string kind;
    /// The violated expectation, or the sanitizer's message.
    std::string message;
    /// The steps that were performed before the process ended.
    std::string story;
};

using Tell = std::function<void(const std::string&)>;

/// Performs the steps in this process and reports each. Returns what is wrong, if anything. Defined
/// once for each of the platforms under test.
[[nodiscard]] std::optional<std::string> live(const Episode& episode, const Tell& tell);

/// The command line of its tool, up to the seed.
[[nodiscard]] std::string commandToRepeat();

/// All steps from the first up to that number.
[[nodiscard]] Episode wholeEpisode(unsigned seed, int steps);

/// nullopt if nothing failed.
[[nodiscard]] std::optional<Failure> run(const Episode& episode);

}
