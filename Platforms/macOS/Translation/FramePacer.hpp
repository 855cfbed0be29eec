/// Decides when a display's ticks are listened to and which of them show a frame: the first frame
/// after a while comes at once, the rest with the ticks, and without a request the ticks end.
#pragma once

namespace vireline::macos {

class FramePacer {
public:
    enum class Start {
        notNeeded, ///< the request is known, or a tick is to come anyway
        ticks,     ///< have ticks from now on, and call `fire` as soon as possible
    };

    enum class Tick {
        frame, ///< show one
        rest,  ///< show none, and have no more ticks
    };

    /// A frame is wanted.
    [[nodiscard]] Start request() noexcept {
        isRequested_ = true;
        if (isTicking_)
            return Start::notNeeded;
        isTicking_ = true;
        return Start::ticks;
    }

    [[nodiscard]] bool isTicking() const noexcept { return isTicking_; }

    /// Whether a frame is to be shown now, in between ticks.
    [[nodiscard]] bool fire() noexcept { return take(); }

    [[nodiscard]] Tick tick() noexcept {
        if (take())
            return Tick::frame;
        isTicking_ = false;
        return Tick::rest;
    }

private:
    [[nodiscard]] bool take() noexcept {
        const bool wasRequested = isRequested_;
        isRequested_ = false;
        return wasRequested;
    }

    bool isRequested_ = false;
    bool isTicking_ = false;
};

}
