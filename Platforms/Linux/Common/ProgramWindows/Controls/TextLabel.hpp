/// The text styles in the program's windows, with sizes and weights relative to the desktop's own
/// font.
#pragma once

#include <QLabel>

namespace vireline::xdg::TextLabel {

enum class Kind {
    title,   ///< a page's title
    heading, ///< a section's heading
    body,
    caption, ///< smaller and dimmed; wraps
    quiet,   ///< the size of body text, but dimmed; wraps
};

[[nodiscard]] QFont font(Kind kind);

/// Always shown as plain text. Owned by `parent`, as usual in Qt.
[[nodiscard]] QLabel* make(Kind kind, const QString& text, QWidget* parent);

}
