/// What has to hold on the virtual desktop whatever has happened. Each throws a Violation.
#pragma once

#include "Soak/SoakWorld.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vireline::desktop {

/// Something that has to come of a step.
void require(bool isSo, const std::string& complaint);

/// The program runs, its docks are where they belong and show the tiles that they should, and the
/// file on the disk is what it saved.
void checkDesktop(SoakWorld& world);

/// What the program holds of the kernel and of the X server.
struct Holdings {
    std::size_t descriptors = 0;
    std::size_t windows = 0;
    std::size_t otherResources = 0;
};

/// What it holds now.
[[nodiscard]] Holdings holdings(SoakWorld& world);

/// It holds no more than it did when everything was as it is now.
void checkHoldings(const Holdings& before, const Holdings& now);

/// Reads what the program has written since the last time: every line of the log is whole, and a
/// sanitizer has found nothing.
class OutputCheck {
public:
    void operator()(SoakWorld& world);

private:
    std::size_t linesRead_ = 0;
};

}
