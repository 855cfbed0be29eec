/// Decides whether an SVG drawing is safe to render. A few lines can demand any amount of work:
/// through elements that repeat others recursively, through deep nesting, or through external
/// files.
#pragma once

#include <QByteArrayView>

namespace vireline::xdg::SvgBudget {

/// False if the text is not a well-formed SVG, is nested or repeated too much, contains a cycle, or
/// refers to external images.
[[nodiscard]] bool allows(QByteArrayView svg);

}
