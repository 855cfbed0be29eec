/// Reads where the pointer is once a frame while it moves over a window, in place of an event for
/// every movement: there can be a thousand a second, each of which wakes the program up. Where a
/// movement makes no difference, it waits for the pointer to go elsewhere.
#pragma once

#include "Panels/Pointer/PointerGrid.hpp"

#include <xcb/xinput.h>

#include <QPoint>
#include <QRect>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace vireline::x11 {

struct PanelContext;

class PointerSampler {
public:
    /// The events that the window gets of some devices.
    struct Selection {
        xcb_input_device_id_t device = 0;
        std::vector<std::uint32_t> events;
    };

    /// For a window that has just been created, with its events selected, and exists for as long as
    /// this does. `onEntry` hears where the pointer came into another of the quiet areas, in
    /// pixels.
    PointerSampler(const PanelContext& context, xcb_window_t window,
                   std::function<void(QPoint)> onEntry);

    /// An event told of a movement. From now on samples do, and no more such events come but those
    /// that are on their way, and none during a press at all.
    void start();
    /// Events are to tell again.
    void stop();
    [[nodiscard]] bool isSampling() const noexcept { return isSampling_; }

    /// The next sample counts as a movement, wherever it is.
    void forget() { last_.reset(); }

    /// In each of these areas of the window, in pixels, movements need not be told of. They count
    /// from the next sample on.
    void setQuietAreas(const std::vector<QRect>& areas);
    /// No sample is due: the pointer is in a quiet area, and its coming into another one, or out of
    /// them, will be told.
    [[nodiscard]] bool isWaiting() const noexcept { return isWaiting_; }
    /// Samples are due again.
    void endWait() { isWaiting_ = false; }

    /// The pointer's place, in pixels from the window's corner, if it has moved since the sample
    /// before. One round trip. Stops once the pointer has kept still for a while. During a press it
    /// tells nothing once the button is up: the release is on its way, and the pointer may be
    /// anywhere since.
    [[nodiscard]] std::optional<QPoint> sample(bool isPressed);

private:
    void select(bool motion) const;

    const PanelContext& context_;
    xcb_window_t window_;
    std::function<void(QPoint)> onEntry_;
    /// Those that movements are among.
    std::vector<Selection> selections_;
    bool isSampling_ = false;
    std::optional<QPoint> last_;
    int stillSamples_ = 0;
    std::optional<PointerGrid> quiet_;
    bool isWaiting_ = false;
};

}
