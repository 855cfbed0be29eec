/// Detects problems that no test asks about, and what a program that ended left behind.
#pragma once

#include <string>
#include <vector>

namespace vireline {

/// Escaped exceptions, unrecognised messages, and messages on other threads to classes that Apple
/// does not document as thread-safe.
[[nodiscard]] std::vector<std::string> unseenFaults();

/// What is left of a program that has ended: windows, timers, observers, taps and objects.
[[nodiscard]] std::vector<std::string> remains();

}
