/// Converts what the system reports of an open file into the kit's file events.
#pragma once

#include "Platform/Files/FileEvents.hpp"

namespace vireline::macos::VnodeEvents {

/// The system's values of the events that a watch requests.
inline constexpr unsigned long removed = 0x1;
inline constexpr unsigned long written = 0x2;
inline constexpr unsigned long extended = 0x4;
inline constexpr unsigned long renamed = 0x20;
inline constexpr unsigned long all = written | extended | removed | renamed;

[[nodiscard]] constexpr FileEventSet fileEvents(unsigned long reported) {
    return {.changed = (reported & (written | extended)) != 0,
            .removed = (reported & (removed | renamed)) != 0};
}

}
