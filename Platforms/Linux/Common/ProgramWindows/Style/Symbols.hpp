/// The named symbols of the program's windows and of its status item, in one colour and at any
/// size.
#pragma once

#include "Icons/Themes/IconTheme.hpp"

#include <QColor>
#include <QImage>
#include <optional>
#include <string>

namespace vireline::xdg {

class Symbols {
public:
    /// Symbols shown together should come from one icon set, so the theme's are used only if it has
    /// all of them; otherwise the embedded ones are used.
    explicit Symbols(const IconTheme& theme) : theme_(theme) {}

    /// A square of `side` pixels; empty for an unknown name.
    [[nodiscard]] QImage image(const std::string& name, int side, const QColor& colour) const;

private:
    [[nodiscard]] bool themeIsComplete() const;

    const IconTheme& theme_;
    mutable std::optional<bool> themeIsComplete_;
};

}
