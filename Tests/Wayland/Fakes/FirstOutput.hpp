/// The compositor's first output, as an object of a test's own connection.
#pragma once

#include <wayland-client.h>

#include <cstdint>
#include <memory>

namespace vireline::wayland {

struct DestroyOutput {
    void operator()(wl_output* output) const { wl_output_destroy(output); }
};
using OwnedOutput = std::unique_ptr<wl_output, DestroyOutput>;

[[nodiscard]] OwnedOutput firstOutput(wl_display* display);

}
