/// Prints a line in a table of measurements.
#pragma once

#include <string>

namespace vireline::desktop {

/// `promise` is the figure's required limit, if it has one.
void report(const std::string& what, double value, const std::string& unit,
            const std::string& promise = {});

}
