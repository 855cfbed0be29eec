#include "Displays/MenuPlacement.hpp"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace vireline::x11::MenuPlacement {
namespace {

/// Puts the menu's nearest corner at `at`, if there is room for that on the screen.
QPoint placed(QPoint at, QSize menu, const QRect& screen) {
    const auto along = [](int from, int length, int low, int high) {
        const int opposite = from - length;
        const int best = from + length <= high || opposite < low ? from : opposite;
        return std::max(low, std::min(best, high - length));
    };
    return {along(at.x(), menu.width(), screen.left(), screen.left() + screen.width()),
            along(at.y(), menu.height(), screen.top(), screen.top() + screen.height())};
}

QPoint placed(const MenuPlace& place, QSize menu, const QRect& screen) {
    const Point corner =
        place.corner({static_cast<double>(menu.width()), static_cast<double>(menu.height())});
    const auto along = [](double from, int length, int low, int high) {
        return std::max(low, std::min(static_cast<int>(std::lround(from)), high - length));
    };
    return {along(corner.x, menu.width(), screen.left(), screen.left() + screen.width()),
            along(corner.y, menu.height(), screen.top(), screen.top() + screen.height())};
}

template <class Place>
void openAt(QMenu& menu, QScreen& screen, const Place& place) {
    menu.setScreen(&screen);
    menu.popup(placed(place, menu.sizeHint(), screen.geometry()));
}

}

void open(QMenu& menu, QScreen& screen, const MenuPlace& place) {
    openAt(menu, screen, place);
}

void openAtPointer(QMenu& menu) {
    const QPoint pointer = QCursor::pos();
    QScreen* const screen = QGuiApplication::screenAt(pointer);
    openAt(menu, screen == nullptr ? *QGuiApplication::primaryScreen() : *screen, pointer);
}

}
