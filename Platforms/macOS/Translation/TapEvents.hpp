/// The events of a pointer tap, with the system's values.
#pragma once

#include "Platform/Desktop/PointerTap.hpp"

#include <cstdint>
#include <optional>

namespace vireline::macos::TapEvents {

inline constexpr std::uint32_t mouseMoved = 5;
inline constexpr std::uint32_t leftMouseDragged = 6;
inline constexpr std::uint32_t tapDisabledByTimeout = 0xFFFFFFFE;
inline constexpr std::uint32_t tapDisabledByUserInput = 0xFFFFFFFF;

/// The events that a tap requests. Those that report that it was disabled come without a request.
inline constexpr std::uint64_t mask = std::uint64_t{1} << mouseMoved | std::uint64_t{1}
                                                                           << leftMouseDragged;

/// nullopt for events that were not requested.
[[nodiscard]] constexpr std::optional<PointerTapEvent> kind(std::uint32_t type) {
    switch (type) {
    case mouseMoved:
        return PointerTapEvent::mouseMoved;
    case leftMouseDragged:
        return PointerTapEvent::leftMouseDragged;
    case tapDisabledByTimeout:
        return PointerTapEvent::tapDisabledByTimeout;
    case tapDisabledByUserInput:
        return PointerTapEvent::tapDisabledByUserInput;
    default:
        return std::nullopt;
    }
}

}
