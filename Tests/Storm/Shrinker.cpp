#include "Storm/Shrinker.hpp"

#include <algorithm>

namespace vireline::storm {
namespace {

/// Limits the part of a sanitizer's report that is printed.
constexpr std::size_t longestStory = 12'000;

std::string listed(const std::vector<int>& numbers) {
    std::string text;
    for (const int number : numbers)
        text += (text.empty() ? "" : ",") + std::to_string(number);
    return text;
}

Episode without(const Episode& episode, std::size_t from, std::size_t count) {
    Episode shorter = episode;
    const auto first = shorter.steps.begin() + static_cast<std::ptrdiff_t>(from);
    const auto last = shorter.steps.begin() +
                      static_cast<std::ptrdiff_t>(std::min(from + count, shorter.steps.size()));
    shorter.steps.erase(first, last);
    return shorter;
}

}

Find shrunk(const Find& find, int mostRuns) {
    Find least = find;
    int runs = 0;
    for (std::size_t piece = std::max<std::size_t>(1, find.episode.steps.size() / 2); piece > 0;) {
        bool isShorter = false;
        for (std::size_t from = 0; from < least.episode.steps.size() && runs < mostRuns;) {
            Episode candidate = without(least.episode, from, piece);
            ++runs;
            auto failure = run(candidate);
            if (failure && failure->kind == least.failure.kind) {
                least = {std::move(candidate), *std::move(failure)};
                isShorter = true;
            } else {
                from += piece;
            }
        }
        if (runs >= mostRuns)
            break;
        if (piece > 1 || !isShorter)
            piece /= 2;
    }
    return least;
}

std::string report(const Find& find) {
    std::string story = find.failure.story;
    if (story.size() > longestStory)
        story = "...\n" + story.substr(story.size() - longestStory);
    return "seed " + std::to_string(find.episode.seed) + ", " +
           std::to_string(find.episode.steps.size()) + " steps: " + find.failure.message + "\n" +
           story + "To repeat it: " + commandToRepeat() + " --seed " +
           std::to_string(find.episode.seed) + " --only " + listed(find.episode.steps) + "\n";
}

}
