#include "Toolkit/MenuCorner.hpp"

#include <algorithm>

namespace vireline::xdg::MenuCorner {

QPoint at(QPoint point, QSize menu, const QRect& screen) {
    const auto along = [](int from, int length, int low, int high) {
        const int opposite = from - length;
        const int best = from + length <= high || opposite < low ? from : opposite;
        return std::max(low, std::min(best, high - length));
    };
    return {along(point.x(), menu.width(), screen.left(), screen.left() + screen.width()),
            along(point.y(), menu.height(), screen.top(), screen.top() + screen.height())};
}

}
