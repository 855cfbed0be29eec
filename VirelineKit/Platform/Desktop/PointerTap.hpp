/// Intercepts pointer movements: sees each position of the pointer and may move it elsewhere.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace vireline {

enum class PointerTapEvent {
    mouseMoved,
    leftMouseDragged,
    tapDisabledByTimeout,   ///< the tap took too long
    tapDisabledByUserInput, ///< the system was asked to disable it
};

/// Returns the position to move the pointer to instead of the given one, both in event space;
/// nullopt leaves the pointer alone. Called for every move, on any thread, so that the pointer
/// never waits for the program: it must be fast, and may only use its own copies of immutable data.
using PointerRule = std::function<std::optional<Point>(Point)>;

/// One tap, removed when this object is destroyed.
class PointerTap : private NonCopyable {
public:
    virtual ~PointerTap() = default;

    /// A disabled tap neither sees nor changes anything.
    virtual void setEnabled(bool isEnabled) = 0;

    /// Replaces the rule. After this returns, the old rule may be called once more, for a move that
    /// is being handled.
    virtual void setRule(PointerRule rule) = 0;
};

class PointerTaps {
public:
    /// Called on the main thread when the system has disabled the tap. Never called once the tap is
    /// destroyed.
    using Disabled = std::function<void(PointerTapEvent)>;

    virtual ~PointerTaps() = default;

    /// Whether taps work only while `Accessibility::isTrusted`, which the system may revoke without
    /// notice.
    [[nodiscard]] virtual bool needPermission() const = 0;

    /// Creates a disabled tap for moves with no button and with the left button held. A tap never
    /// swallows events.
    [[nodiscard]] virtual Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                                     Disabled onDisabled) = 0;
};

}
