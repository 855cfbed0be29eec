/// Waits for the first events of some objects without dispatching those of others.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <vector>

struct wl_display;
struct wl_event_queue;
struct wl_proxy;

namespace vireline::wayland {

/// Until this is destroyed, the objects' events are in a queue of their own. Afterwards they are
/// dispatched with all others.
class FirstEvents : private NonCopyable {
public:
    explicit FirstEvents(wl_display* display);
    ~FirstEvents();

    /// Objects that events create must be added by the listener.
    void add(wl_proxy* object);

    /// To be called before an added object is destroyed.
    void remove(const wl_proxy* object);

    /// Waits until the compositor has answered everything so far.
    void wait();

private:
    void release();

    wl_display* display_;
    wl_event_queue* queue_;
    std::vector<wl_proxy*> objects_;
};

}
