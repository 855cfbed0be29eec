/// The frozen pointer of screenshots.
#pragma once

#include <optional>
#include <string_view>

namespace vireline {

/// Where along a dock the pointer is pretended to be, as a fraction of its length, read from the
/// text of "VIRELINE_DEMO_CURSOR": a decimal floating-point number and nothing else, whatever the
/// locale.
[[nodiscard]] std::optional<double> demoCursorFraction(std::string_view text);

}
