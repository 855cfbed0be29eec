/// Runs a course of steps in a process of its own, so that one that dies can be reported and cut
/// down like any other that fails.
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
    /// Tells one kind of failure from another, as far as it can be told.
    std::string kind;
    /// What is wrong, or what the sanitizer says.
    std::string message;
    /// What had happened, as far as the process lived to tell.
    std::string story;
};

using Tell = std::function<void(const std::string&)>;

/// Takes the steps in this process and tells of each. What is wrong, if anything is. Everything
/// that storms has one of its own.
[[nodiscard]] std::optional<std::string> live(const Episode& episode, const Tell& tell);

/// How its tool is called, up to the seed.
[[nodiscard]] std::string commandToRepeat();

/// All steps from the first to that number.
[[nodiscard]] Episode wholeEpisode(unsigned seed, int steps);

/// Nothing when all is well.
[[nodiscard]] std::optional<Failure> run(const Episode& episode);

}
