/// How widgets are made and given their texts.
#pragma once

#include <QString>
#include <memory>
#include <string>
#include <utility>

namespace vireline::x11 {

/// A new widget for the parent among its arguments, which owns it.
template <class Widget, class... Arguments>
[[nodiscard]] Widget* makeWidget(Arguments&&... arguments) {
    return std::make_unique<Widget>(std::forward<Arguments>(arguments)...).release();
}

[[nodiscard]] inline QString toQString(const std::string& text) {
    return QString::fromStdString(text);
}

}
