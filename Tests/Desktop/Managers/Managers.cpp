/// Runs the scenarios under one window manager, or makes a table of the results.
///
///   DesktopManagers --results <file> [options of the tests' framework]
///   DesktopManagers --table <folder> <manager>...
///
/// The manager is the one named in VIRELINE_TESTED_MANAGER, or "none".
#include "Results.hpp"

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

int main(int count, char** words) {
    using namespace vireline::desktop;
    testing::InitGoogleTest(&count, words);
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments.size() >= 2 && arguments[0] == "--table") {
        writeTable(std::cout, arguments[1], std::span{arguments}.subspan(2));
        return EXIT_SUCCESS;
    }
    if (arguments.size() != 2 || arguments[0] != "--results") {
        std::cerr << "usage: DesktopManagers --results <file> | --table <folder> <manager>...\n";
        return EXIT_FAILURE;
    }
    // GoogleTest takes ownership.
    testing::UnitTest::GetInstance()->listeners().Append(
        std::make_unique<ResultsFile>(arguments[1]).release());
    return RUN_ALL_TESTS();
}
