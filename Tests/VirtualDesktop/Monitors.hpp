/// The displays of the virtual desktop, made of RandR 1.5 monitors.
#pragma once

#include "VirtualDesktop/PixelGeometry.hpp"
#include "VirtualDesktop/XClient.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vireline::desktop {

struct Monitor {
    std::string name;
    PixelRect frame;

    bool operator==(const Monitor&) const = default;
};

/// Attaches exactly these monitors, the first of them primary, and keeps those that stay as they
/// are.
void setMonitors(const XClient& client, const std::vector<Monitor>& monitors);

/// The display ID that goes with a monitor's name.
[[nodiscard]] std::uint32_t displayID(const XClient& client, const std::string& monitor);

}
