/// One line of a table of measurements.
#pragma once

#include <string>

namespace vireline::desktop {

/// `promise` is the bound that the figure has to keep, if it has one.
void report(const std::string& what, double value, const std::string& unit,
            const std::string& promise = {});

}
