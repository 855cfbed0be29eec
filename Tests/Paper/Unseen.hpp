/// What goes wrong without a test asking for it, and what a program that ended left behind.
#pragma once

#include <string>
#include <vector>

namespace vireline {

/// Exceptions that left the program, messages without an answer, and messages on another thread to
/// classes that Apple does not document as safe there.
[[nodiscard]] std::vector<std::string> unseenFaults();

/// What of a program that ended is still there: windows, timers, observers, taps and objects.
[[nodiscard]] std::vector<std::string> remains();

}
