/// How this user's pointer is set up.
#pragma once

namespace vireline {

class PointerSettings {
public:
    virtual ~PointerSettings() = default;

    /// Seconds; the longest gap between two taps that still make a double click. Read afresh on
    /// every tap, as the user may change it.
    [[nodiscard]] virtual double doubleClickInterval() const = 0;
};

}
