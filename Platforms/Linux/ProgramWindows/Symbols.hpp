/// The named symbols of the program's windows and of its status item, in one colour and at any
/// size.
#pragma once

#include "Icons/IconTheme.hpp"

#include <QColor>
#include <QImage>
#include <optional>
#include <string>

namespace vireline::x11 {

class Symbols {
public:
    /// Symbols that stand side by side should be of one hand: the theme's are used only if it has
    /// one for every name, else the program's own.
    explicit Symbols(const IconTheme& theme) : theme_(theme) {}

    /// A square of `side` pixels; empty for a name that nobody knows.
    [[nodiscard]] QImage image(const std::string& name, int side, const QColor& colour) const;

private:
    [[nodiscard]] bool themeIsComplete() const;

    const IconTheme& theme_;
    mutable std::optional<bool> themeIsComplete_;
};

}
