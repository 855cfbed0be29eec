/// Display IDs as the system reports them.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>

namespace vireline::macos::DisplayNumbers {

/// nullopt for a number that does not fit an unsigned 32-bit display ID.
[[nodiscard]] constexpr std::optional<std::uint32_t> fromReported(long long reported) {
    if (reported < 0 || reported > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(reported);
}

}
