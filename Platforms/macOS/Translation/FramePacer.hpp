/// Decides when a display's ticks are needed and which of them show a frame. The first frame after
/// a pause is shown immediately, further ones with the ticks, which stop when no frame is
/// requested.
#pragma once

namespace vireline::macos {

class FramePacer {
public:
    enum class Start {
        notNeeded, ///< the next tick will show the frame
        ticks,     ///< start the ticks, and call `fire` as soon as possible
    };

    enum class Tick {
        frame, ///< show a frame
        rest,  ///< show nothing, and stop the ticks
    };

    /// Requests a frame.
    [[nodiscard]] Start request() noexcept {
        isRequested_ = true;
        if (isTicking_)
            return Start::notNeeded;
        isTicking_ = true;
        return Start::ticks;
    }

    [[nodiscard]] bool isTicking() const noexcept { return isTicking_; }

    /// Whether to show a frame now, between ticks.
    [[nodiscard]] bool fire() noexcept { return consumeRequest(); }

    [[nodiscard]] Tick tick() noexcept {
        if (consumeRequest())
            return Tick::frame;
        isTicking_ = false;
        return Tick::rest;
    }

private:
    [[nodiscard]] bool consumeRequest() noexcept {
        const bool wasRequested = isRequested_;
        isRequested_ = false;
        return wasRequested;
    }

    bool isRequested_ = false;
    bool isTicking_ = false;
};

}
