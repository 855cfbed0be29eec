/// The identity of any program's window. What the number stands for is known to the window system
/// alone.
#pragma once

#include <cstdint>

namespace vireline::xdg {

enum class WindowID : std::uint64_t {
    none = 0,
};

}
