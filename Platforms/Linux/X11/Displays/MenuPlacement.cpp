#include "Displays/MenuPlacement.hpp"

#include "Toolkit/MenuCorner.hpp"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace vireline::x11::MenuPlacement {
namespace {

QPoint placed(const MenuPlace& place, QSize menu, const QRect& screen) {
    const Point corner =
        place.corner({static_cast<double>(menu.width()), static_cast<double>(menu.height())});
    const auto along = [](double from, int length, int low, int high) {
        return std::max(low, std::min(static_cast<int>(std::lround(from)), high - length));
    };
    return {along(corner.x, menu.width(), screen.left(), screen.left() + screen.width()),
            along(corner.y, menu.height(), screen.top(), screen.top() + screen.height())};
}

}

void open(QMenu& menu, QScreen& screen, const MenuPlace& place) {
    menu.setScreen(&screen);
    menu.popup(placed(place, menu.sizeHint(), screen.geometry()));
}

void openAtPointer(QMenu& menu) {
    const QPoint pointer = QCursor::pos();
    QScreen* screen = QGuiApplication::screenAt(pointer);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    menu.setScreen(screen);
    menu.popup(xdg::MenuCorner::at(pointer, menu.sizeHint(), screen->geometry()));
}

}
