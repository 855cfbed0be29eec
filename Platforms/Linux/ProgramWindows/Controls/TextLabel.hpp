/// The texts of the program's windows, each kind in its size and weight relative to the desktop's
/// own font.
#pragma once

#include <QLabel>

namespace vireline::x11::TextLabel {

enum class Kind {
    title,   ///< of a page
    heading, ///< of a section
    body,
    caption, ///< smaller and quieter, and wraps
    quiet,   ///< as large as body text, and wraps
};

[[nodiscard]] QFont font(Kind kind);

/// Plain text, whatever is in it. Owned by `parent`, as Qt has it.
[[nodiscard]] QLabel* make(Kind kind, const QString& text, QWidget* parent);

}
