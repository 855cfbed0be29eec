/// The colours of the program's own windows as a palette, which all their controls paint with:
/// Window lies behind the cards, which are Base; PlaceholderText is the quieter text, Mid the
/// hairlines, Button the ground of controls, Light what stands out on it, Highlight the accent.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <QPalette>

namespace vireline::x11::WindowPalette {

[[nodiscard]] QPalette make(bool isDark, const QColor& accent);

[[nodiscard]] bool isDark(const QPalette& palette);

/// Text or a symbol of this tone on a card.
[[nodiscard]] QColor tone(const QPalette& palette, StatusLine::Tone tone);

/// What a control of this colour looks like under the pointer, and while it is pressed.
[[nodiscard]] QColor hovered(const QPalette& palette, const QColor& colour);
[[nodiscard]] QColor pressed(const QPalette& palette, const QColor& colour);

}
