/// The protocol of the layer shell. In its header, a parameter has the name of a keyword.
#pragma once

#include <wayland-client.h>

// NOLINTBEGIN
#define namespace name_space
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#undef namespace
// NOLINTEND

#include <cstdint>

namespace vireline::wayland {

/// The newest version that we know.
inline constexpr std::uint32_t layerShellVersion = 4;

}
