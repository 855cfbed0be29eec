/// Opens menus where they belong on the screen, in Qt's coordinates.
#pragma once

#include "Presentation/Menu.hpp"

class QMenu;
class QScreen;

namespace vireline::x11::MenuPlacement {

/// Opens at the place, shifted to fit inside the screen.
void open(QMenu& menu, QScreen& screen, const MenuPlace& place);

/// Opens with a corner at the pointer, inside the screen that the pointer is on.
void openAtPointer(QMenu& menu);

}
