/// Stands in the system's pointer path: sees where the pointer goes and may put it elsewhere.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace vireline {

enum class PointerTapEvent {
    mouseMoved,
    leftMouseDragged,
    tapDisabledByTimeout,   ///< the system lost patience with the tap
    tapDisabledByUserInput, ///< the system was told to
};

/// The position to move the pointer to instead of this one, both in event space; nullopt lets it go
/// there. Called for every move, on a thread of the platform's choice, so that the pointer never
/// waits for the program: it must be quick, and may only use its own copies of immutable data.
using PointerRule = std::function<std::optional<Point>(Point)>;

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

    /// Asks this rule from now on. The one before is no longer asked when this returns, or once
    /// more by a move that is just on its way.
    virtual void setRule(PointerRule rule) = 0;
};

class PointerTaps {
public:
    /// Is told, on the main thread, that the system disabled the tap; never by a tap that has
    /// ended.
    using Disabled = std::function<void(PointerTapEvent)>;

    virtual ~PointerTaps() = default;

    /// Whether there are taps only for as long as `Accessibility::isTrusted`. The system may take
    /// that trust back without saying so.
    [[nodiscard]] virtual bool needPermission() const = 0;

    /// A tap for moves without a button and with the left one, not enabled yet. Nothing is ever
    /// swallowed.
    [[nodiscard]] virtual Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                                     Disabled onDisabled) = 0;
};

}
