/// The simulated pointer for screenshots.
#pragma once

#include <optional>
#include <string_view>

namespace vireline {

/// Parses "VIRELINE_DEMO_CURSOR", the position of a simulated pointer as a fraction of the dock's
/// length. Accepts only a decimal floating-point number, independent of the locale.
[[nodiscard]] std::optional<double> demoCursorFraction(std::string_view text);

}
