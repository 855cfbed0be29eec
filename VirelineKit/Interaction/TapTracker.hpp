/// Distinguishes single from double clicks on one tile. The first tap of a double click counts as a
/// single click immediately, without waiting for the second.
#pragma once

#include <optional>

namespace vireline {

class TapTracker {
public:
    enum class Resolution { single, doubled };

    /// Records a tap at `time` and returns whether it completes a double click. `time` and
    /// `threshold` are in the same unit; an interval of exactly `threshold` is too long.
    Resolution registerTap(double time, double threshold);

private:
    /// The last tap that counted as a single click.
    std::optional<double> lastTap_;
};

}
