/// Polls the pointer once per frame while it moves over a window, instead of receiving an event per
/// movement: there can be a thousand of those per second, each of which wakes up the program.
#pragma once

#include <xcb/xinput.h>

#include <QPoint>
#include <cstdint>
#include <optional>
#include <vector>

namespace vireline::x11 {

struct PanelContext;

class PointerSampler {
public:
    /// The events that are selected for some devices.
    struct Selection {
        xcb_input_device_id_t device = 0;
        std::vector<std::uint32_t> events;
    };

    /// The window must be newly created with its events selected, and must outlive this object.
    PointerSampler(const PanelContext& context, xcb_window_t window);

    /// Switches from events to samples. Motion events already on their way still arrive, except
    /// during a press.
    void start();
    /// Switches back to events.
    void stop();
    [[nodiscard]] bool isSampling() const noexcept { return isSampling_; }

    /// The next sample counts as a movement even if the position is unchanged.
    void forget() { last_.reset(); }

    /// The pointer's position, in pixels from the window's corner, if it has moved since the
    /// previous sample. One round trip. Sampling stops once the pointer has been still for a while.
    /// During a press it returns nullopt once the button is up, because the release event is on its
    /// way and the pointer may have moved since.
    [[nodiscard]] std::optional<QPoint> sample(bool isPressed);

private:
    void select(bool motion) const;

    const PanelContext& context_;
    xcb_window_t window_;
    /// The selections that include motion.
    std::vector<Selection> selections_;
    bool isSampling_ = false;
    std::optional<QPoint> last_;
    int stillSamples_ = 0;
};

}
