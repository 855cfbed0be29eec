/// Who keeps a dock's window where it belongs: the window manager as long as it does so, else the
/// program itself, with a window that the manager has no say in.
#pragma once

#include <cstdint>
#include <ostream>

namespace vireline::x11 {

enum class Keeper : std::uint8_t { windowManager, program };

/// How a shown window has fared.
struct KeepingFacts {
    bool hasManager = false;
    bool isMapped = false;
    /// The window manager has taken the window on.
    bool isManaged = false;
    /// It was moved away as often as it was put back.
    bool isDisplaced = false;
    /// Another window manager came after the program took over.
    bool isManagerNew = false;
    /// Looks at the window since it was to be shown: all of them, and those that found it mapped
    /// though not managed.
    int looks = 0;
    int looksUnmanaged = 0;
};

enum class KeepingStep : std::uint8_t {
    /// Nothing is left to be waited for.
    rest,
    /// Look again later.
    wait,
    /// Ask for the window to be shown once more: the manager may have missed it while it started.
    showAgain,
    /// Go on with a window that overrides the manager.
    takeOver,
    /// Go on with a window that the manager manages.
    handBack,
};

inline std::ostream& operator<<(std::ostream& out, KeepingStep step) {
    return out << static_cast<int>(step);
}

namespace DockKeeping {

/// Managers list or frame a window in the same turn in which they map it, so two looks suffice.
inline constexpr int looksUntilUnmanaged = 2;
/// For as long as this, a busy manager may leave the window unmapped.
inline constexpr int looksUntilShownAgain = 6;
inline constexpr int looksUntilLost = 12;

[[nodiscard]] constexpr KeepingStep next(Keeper keeper, const KeepingFacts& facts) noexcept {
    if (keeper == Keeper::program)
        return facts.isManagerNew && facts.hasManager ? KeepingStep::handBack : KeepingStep::rest;
    if (!facts.hasManager)
        return facts.isMapped ? KeepingStep::rest : KeepingStep::wait;
    if (facts.isDisplaced)
        return KeepingStep::takeOver;
    if (facts.isMapped && facts.isManaged)
        return KeepingStep::rest;
    if (facts.looksUnmanaged >= looksUntilUnmanaged || facts.looks >= looksUntilLost)
        return KeepingStep::takeOver;
    return facts.looks == looksUntilShownAgain ? KeepingStep::showAgain : KeepingStep::wait;
}

}
}
