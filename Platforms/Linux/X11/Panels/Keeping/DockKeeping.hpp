/// Decides who keeps a dock's window in place: the window manager for as long as it does so,
/// otherwise the program itself, with an override-redirect window.
#pragma once

#include <cstdint>
#include <ostream>

namespace vireline::x11 {

enum class Keeper : std::uint8_t { windowManager, program };

/// What was observed about a shown window.
struct KeepingFacts {
    bool hasManager = false;
    bool isMapped = false;
    /// The window manager is managing the window.
    bool isManaged = false;
    /// It was moved away again until the corrections were used up.
    bool isDisplaced = false;
    /// Another window manager started after the program took over.
    bool isManagerNew = false;
    /// Consecutive checks that found the managed window with a border or below an ordinary window.
    int looksMistreated = 0;
    /// Number of checks since the window was to be shown: all of them, and the latest consecutive
    /// ones that found it mapped but not managed.
    int looks = 0;
    int looksUnmanaged = 0;
};

enum class KeepingStep : std::uint8_t {
    /// Nothing left to do.
    rest,
    /// Check again later.
    wait,
    /// Show the window again: the manager may have missed it while starting up.
    showAgain,
    /// Continue with an override-redirect window.
    takeOver,
    /// Continue with a managed window.
    handBack,
};

inline std::ostream& operator<<(std::ostream& out, KeepingStep step) {
    return out << static_cast<int>(step);
}

namespace DockKeeping {

/// Two checks suffice, because managers list or frame a window as soon as they map it.
inline constexpr int looksUntilUnmanaged = 2;
/// A single check may come between two steps of the manager.
inline constexpr int looksUntilMistreated = 2;
/// A busy manager may leave the window unmapped for this many checks.
inline constexpr int looksUntilShownAgain = 6;
inline constexpr int looksUntilLost = 12;

[[nodiscard]] constexpr KeepingStep next(Keeper keeper, const KeepingFacts& facts) noexcept {
    if (keeper == Keeper::program)
        return facts.isManagerNew && facts.hasManager ? KeepingStep::handBack : KeepingStep::rest;
    if (!facts.hasManager)
        return facts.isMapped ? KeepingStep::rest : KeepingStep::wait;
    if (facts.isDisplaced)
        return KeepingStep::takeOver;
    if (facts.isMapped && facts.isManaged) {
        if (facts.looksMistreated == 0)
            return KeepingStep::rest;
        return facts.looksMistreated < looksUntilMistreated ? KeepingStep::wait
                                                            : KeepingStep::takeOver;
    }
    if (facts.looksUnmanaged >= looksUntilUnmanaged || facts.looks >= looksUntilLost)
        return KeepingStep::takeOver;
    return facts.looks == looksUntilShownAgain ? KeepingStep::showAgain : KeepingStep::wait;
}

}
}
