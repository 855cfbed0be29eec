/// Stands in the system's pointer path: sees where the pointer goes and may put it elsewhere.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace vireline {

struct PointerTapEvent {
    enum class Kind {
        mouseMoved,
        leftMouseDragged,
        tapDisabledByTimeout,   ///< the system lost patience with the tap
        tapDisabledByUserInput, ///< the system was told to
    };

    Kind kind = Kind::mouseMoved;
    /// Event space: points, origin at the primary display's top-left corner, y downwards.
    Point location;
};

/// One tap. Ends with this object, which gives the system back all that it took.
class PointerTap {
public:
    PointerTap() = default;
    PointerTap(const PointerTap&) = delete;
    PointerTap& operator=(const PointerTap&) = delete;
    PointerTap(PointerTap&&) = delete;
    PointerTap& operator=(PointerTap&&) = delete;
    virtual ~PointerTap() = default;

    /// A tap that is not enabled lets everything pass, unseen.
    virtual void setEnabled(bool isEnabled) = 0;
};

class PointerTaps {
public:
    /// Where the pointer shall be instead, in event space; nothing to let it be. Must be quick: it
    /// is asked for every move.
    using Callback = std::function<std::optional<Point>(const PointerTapEvent&)>;

    virtual ~PointerTaps() = default;

    /// A tap for moves without a button and with the left one, not enabled yet. Nothing is ever
    /// swallowed.
    [[nodiscard]] virtual Result<std::unique_ptr<PointerTap>> create(Callback callback) = 0;
};

}
