/// Performs random actions on a desktop for some minutes, faster and worse than any real one, and
/// checks the docks after each of them.
#include "Soak/SoakChecks.hpp"
#include "Soak/SoakSteps.hpp"
#include "Soak/SoakWorld.hpp"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace vireline::desktop {
namespace {

using Clock = std::chrono::steady_clock;

struct Arguments {
    double minutes = 5;
    unsigned seed = std::random_device{}();
    std::filesystem::path program = TESTED_PROGRAM;
    /// A program, with its arguments, that runs the tested one.
    std::vector<std::string> through;
};

/// DesktopSoak <minutes> <seed or -> <program> [wrapper and its arguments...]
Arguments parse(const std::vector<std::string>& words) {
    Arguments arguments;
    if (!words.empty())
        arguments.minutes = std::stod(words[0]);
    if (words.size() > 1 && words[1] != "-")
        arguments.seed = static_cast<unsigned>(std::stoul(words[1]));
    if (words.size() > 2)
        arguments.program = words[2];
    if (words.size() > 3)
        arguments.through.assign(words.begin() + 3, words.end());
    return arguments;
}

const SoakStep& anyStep(SoakWorld& world) {
    const auto steps = soakSteps();
    const int total = std::accumulate(steps.begin(), steps.end(), 0,
                                      [](int sum, const auto& step) { return sum + step.weight; });
    auto left = static_cast<int>(world.any(static_cast<std::size_t>(total)));
    for (const SoakStep& step : steps) {
        left -= step.weight;
        if (left < 0)
            return step;
    }
    return steps.back();
}

/// A complete run on one desktop: a fresh start, many steps and an orderly end.
class Life {
public:
    Life(const Arguments& arguments, unsigned seed)
        : world_(
              Programs{arguments.program, TEST_APP, FILE_MANAGER, NOTIFIER_HOST, MONITOR_OUTPUTS},
              seed, arguments.through) {}

    void run(int steps, std::map<std::string, int>& counts) {
        warmUp(world_);
        holdings_ = holdings(world_);
        pid_ = world_.desktop().vireline().pid();
        for (int i = 0; i < steps; ++i) {
            const SoakStep& step = anyStep(world_);
            lastSteps_.emplace_back(step.name);
            step.run(world_);
            checkDesktop(world_);
            checkOutput_(world_);
            ++counts[step.name];
        }
        finish();
    }

    void leaveEvidence() {
        std::cout << "the last steps:\n";
        const auto shown = std::min<std::size_t>(lastSteps_.size(), 12);
        for (auto step = lastSteps_.end() - static_cast<std::ptrdiff_t>(shown);
             step != lastSteps_.end(); ++step)
            std::cout << "  " << *step << '\n';
        world_.desktop().leaveEvidence(EVIDENCE_FOLDER, "Soak");
    }

private:
    /// Restores the initial state, in which the program must not hold more resources than at first,
    /// and must quit cleanly.
    void finish() {
        world_.endApps();
        world_.setMonitors(0);
        checkDesktop(world_);
        if (world_.desktop().vireline().pid() == pid_ && !world_.settings().autoHide)
            checkHoldings(holdings_, holdings(world_));
        world_.end();
        checkOutput_(world_);
    }

    SoakWorld world_;
    OutputCheck checkOutput_;
    Holdings holdings_;
    pid_t pid_ = 0;
    std::vector<std::string> lastSteps_;
};

bool soak(const Arguments& arguments) {
    constexpr int stepsOfALife = 60;
    const auto end = Clock::now() + std::chrono::duration<double>{arguments.minutes * 60};
    std::map<std::string, int> counts;
    int lives = 0;
    for (unsigned seed = arguments.seed; lives == 0 || Clock::now() < end; ++seed, ++lives) {
        std::cout << "seed " << seed << std::endl;
        Life life{arguments, seed};
        try {
            life.run(stepsOfALife, counts);
        } catch (const std::exception& error) {
            std::cout << "with seed " << seed << ": " << error.what() << '\n';
            life.leaveEvidence();
            return false;
        }
    }
    for (const auto& [name, count] : counts)
        std::cout << count << " times: " << name << '\n';
    std::cout << lives << " desktops, all well\n";
    return true;
}

}
}

int main(int argc, char** argv) {
    try {
        const std::vector<std::string> words(argv + 1, argv + argc);
        return vireline::desktop::soak(vireline::desktop::parse(words)) ? EXIT_SUCCESS
                                                                        : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
