/// Helpers that create widgets and set their texts.
#pragma once

#include <QString>
#include <memory>
#include <string>
#include <utility>

namespace vireline::xdg {

/// Creates a widget owned by the parent that is among its arguments.
template <class Widget, class... Arguments>
[[nodiscard]] Widget* makeWidget(Arguments&&... arguments) {
    return std::make_unique<Widget>(std::forward<Arguments>(arguments)...).release();
}

[[nodiscard]] inline QString toQString(const std::string& text) {
    return QString::fromStdString(text);
}

}
