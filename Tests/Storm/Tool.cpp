/// Runs storms on demand: Storm [--seed first] [--only steps] [seeds] [steps]
#include "Storm/Shrinker.hpp"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace vireline::storm {
namespace {

struct Arguments {
    unsigned seed = 1;
    int seeds = 100;
    int steps = 1000;
    /// Steps of a single seed, to reproduce a failure.
    std::vector<int> only;
};

std::vector<int> numbersIn(const std::string& text) {
    std::vector<int> numbers;
    std::istringstream list{text};
    for (std::string number; std::getline(list, number, ',');)
        numbers.push_back(std::stoi(number));
    return numbers;
}

Arguments parse(const std::vector<std::string>& words) {
    Arguments arguments;
    std::vector<int> plain;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--seed")
            arguments.seed = static_cast<unsigned>(std::stoul(words.at(++i)));
        else if (words[i] == "--only")
            arguments.only = numbersIn(words.at(++i));
        else
            plain.push_back(std::stoi(words[i]));
    }
    if (!plain.empty())
        arguments.seeds = plain[0];
    if (plain.size() > 1)
        arguments.steps = plain[1];
    return arguments;
}

int repeat(const Arguments& arguments) {
    const Episode episode{arguments.seed, arguments.only};
    const auto failure = run(episode);
    std::cout << (failure ? report({episode, *failure}) : "nothing is wrong\n");
    return failure ? EXIT_FAILURE : EXIT_SUCCESS;
}

int storm(const Arguments& arguments) {
    const auto began = std::chrono::steady_clock::now();
    long long steps = 0;
    int finds = 0;
    for (int i = 0; i < arguments.seeds; ++i) {
        const auto seed = arguments.seed + static_cast<unsigned>(i);
        const Episode episode = wholeEpisode(seed, arguments.steps);
        steps += arguments.steps;
        const auto failure = run(episode);
        if (!failure)
            continue;
        ++finds;
        std::cout << report(shrunk({episode, *failure})) << std::endl;
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    std::cout << arguments.seeds << " seeds from " << arguments.seed << ", " << steps << " steps, "
              << finds << " failures, " << took.count() << " s\n";
    return finds == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}
}

int main(int count, char** words) {
    vireline::storm::Arguments arguments;
    try {
        arguments = vireline::storm::parse({words + 1, words + count});
    } catch (const std::exception&) {
        std::cerr << "usage: Storm [--seed first] [--only steps] [seeds] [steps]\n";
        return EXIT_FAILURE;
    }
    return arguments.only.empty() ? vireline::storm::storm(arguments)
                                  : vireline::storm::repeat(arguments);
}
