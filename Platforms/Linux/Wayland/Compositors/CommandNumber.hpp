#pragma once

#include <cmath>
#include <string>

namespace vireline::wayland {

/// A length or position for a compositor's command: compositors place windows on whole pixels.
[[nodiscard]] inline std::string number(double value) {
    return std::to_string(std::lround(value));
}

}
