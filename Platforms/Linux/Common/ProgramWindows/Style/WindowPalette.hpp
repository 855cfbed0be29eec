/// The colours of the program's own windows as a palette that all their controls paint with: Window
/// is the background behind the cards, Base the cards, PlaceholderText the dimmed text, Mid the
/// hairlines, Button the controls' background, Light what stands out on it, and Highlight the
/// accent.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <QPalette>

namespace vireline::xdg::WindowPalette {

[[nodiscard]] QPalette make(bool isDark, const QColor& accent);

[[nodiscard]] bool isDark(const QPalette& palette);

/// The colour for text or a symbol of this tone on a card.
[[nodiscard]] QColor tone(const QPalette& palette, StatusLine::Tone tone);

/// A control's colour while the pointer is over it, and while it is pressed.
[[nodiscard]] QColor hovered(const QPalette& palette, const QColor& colour);
[[nodiscard]] QColor pressed(const QPalette& palette, const QColor& colour);

}
