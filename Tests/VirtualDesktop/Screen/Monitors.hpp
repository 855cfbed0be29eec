/// The virtual desktop's displays, made of RandR 1.5 monitors.
#pragma once

#include "VirtualDesktop/Screen/PixelGeometry.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vireline::desktop {

struct Monitor {
    std::string name;
    PixelRect frame;

    bool operator==(const Monitor&) const = default;
};

/// Attaches exactly these monitors, the first of them primary, without touching unchanged ones.
void setMonitors(const XClient& client, const std::vector<Monitor>& monitors);

/// The display ID for a monitor's name.
[[nodiscard]] std::uint32_t displayID(const XClient& client, const std::string& monitor);

}
