/// The header of the layer shell, a parameter of which has the name of a keyword.
#pragma once

#include <wayland-client.h>

// NOLINTBEGIN
#define namespace name_space
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#undef namespace
// NOLINTEND
