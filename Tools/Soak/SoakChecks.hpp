/// The invariants of the virtual desktop. Violations are thrown.
#pragma once

#include "Soak/SoakWorld.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vireline::desktop {

/// Throws a Violation with this message unless the condition holds.
void require(bool isSo, const std::string& complaint);

/// Checks that the program is running, that its docks are in place with the expected tiles, and
/// that the file matches what it saved.
void checkDesktop(SoakWorld& world);

/// Kernel and X server resources that the program holds.
struct Holdings {
    std::size_t descriptors = 0;
    std::size_t windows = 0;
    std::size_t otherResources = 0;
};

/// What it currently holds.
[[nodiscard]] Holdings holdings(SoakWorld& world);

/// Checks that it holds no more than in an earlier state of the same kind.
void checkHoldings(const Holdings& before, const Holdings& now);

/// Reads the program's output since the last call: every log line must be complete, and there must
/// be no sanitizer report.
class OutputCheck {
public:
    void operator()(SoakWorld& world);

private:
    std::size_t linesRead_ = 0;
};

}
