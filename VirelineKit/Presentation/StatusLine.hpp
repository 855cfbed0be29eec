/// A line with the status of a feature, optionally with a symbol before it and a button after it.
#pragma once

#include <string>

namespace vireline {

struct StatusLine {
    enum class Tone {
        neutral,
        positive, ///< green
        warning,  ///< orange
    };

    /// The name of a symbol; empty for none.
    std::string symbol;
    Tone symbolTone = Tone::neutral;
    std::string text;
    Tone textTone = Tone::neutral;
    /// A button's title; empty for none.
    std::string button;

    bool operator==(const StatusLine&) const = default;
};

}
