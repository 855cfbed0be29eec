/// Whether an SVG drawing may be rendered at all. A few lines of it can ask for any amount of work:
/// through elements that repeat others that repeat others, through depth, or through files that it
/// refers to.
#pragma once

#include <QByteArrayView>

namespace vireline::x11::SvgBudget {

/// False for text that is no well-formed SVG, is nested or repeated beyond measure, repeats itself,
/// or takes pictures from outside itself.
[[nodiscard]] bool allows(QByteArrayView svg);

}
