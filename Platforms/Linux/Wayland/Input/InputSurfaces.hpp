/// Which surfaces of ours get input. Events about other surfaces, such as those that have just been
/// destroyed, are ignored.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <map>

struct wl_surface;

namespace vireline::wayland {

class SurfaceInput;

class InputSurfaces : private NonCopyable {
public:
    void add(wl_surface& surface, SurfaceInput& input) { inputs_[&surface] = &input; }
    void remove(wl_surface& surface) { inputs_.erase(&surface); }

    /// Null for other surfaces, and for none.
    [[nodiscard]] SurfaceInput* find(wl_surface* surface) const {
        const auto found = inputs_.find(surface);
        return found == inputs_.end() ? nullptr : found->second;
    }

private:
    std::map<wl_surface*, SurfaceInput*> inputs_;
};

}
