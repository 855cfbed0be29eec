/// The user's pointer settings.
#pragma once

namespace vireline {

class PointerSettings {
public:
    virtual ~PointerSettings() = default;

    /// The longest interval between the two taps of a double click, in seconds. Not cached, since
    /// the user may change it.
    [[nodiscard]] virtual double doubleClickInterval() const = 0;
};

}
