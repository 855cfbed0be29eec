#include "Toolkit/PopUpMenu.hpp"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

namespace vireline::x11 {
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

QKeyCombination keyOf(char keyEquivalent) {
    const auto letter = static_cast<unsigned char>(keyEquivalent);
    return QKeyCombination{Qt::ControlModifier, static_cast<Qt::Key>(std::toupper(letter))};
}

/// Handles shortcuts itself, because Qt does not for a menu without a parent window.
class KeyedMenu final : public QMenu {
private:
    void keyPressEvent(QKeyEvent* event) override {
        for (QAction* const action : actions()) {
            if (action->shortcut() != QKeySequence{event->keyCombination()} ||
                action->shortcut().isEmpty())
                continue;
            close();
            return action->trigger();
        }
        QMenu::keyPressEvent(event);
    }
};

}

PopUpMenu::PopUpMenu(const Menu& menu, QScreen& screen, QPoint at, Closed closed)
    : PopUpMenu(menu, screen, std::move(closed)) {
    menu_->popup(placed(at, menu_->sizeHint(), screen.geometry()));
}

PopUpMenu::PopUpMenu(const Menu& menu, QScreen& screen, const MenuPlace& place, Closed closed)
    : PopUpMenu(menu, screen, std::move(closed)) {
    menu_->popup(placed(place, menu_->sizeHint(), screen.geometry()));
}

PopUpMenu::PopUpMenu(const Menu& menu, QScreen& screen, Closed closed)
    : closed_(std::move(closed)), menu_(std::make_unique<KeyedMenu>().release()) {
    fill(menu);
    // Queued, because Qt reports the chosen action only after hiding the menu.
    QObject::connect(menu_.get(), &QMenu::aboutToHide, menu_.get(),
                     lifetime_.guard([this] { finish(); }), Qt::QueuedConnection);
    menu_->setScreen(&screen);
}

void PopUpMenu::Discard::operator()(QMenu* menu) const {
    menu->disconnect();
    menu->hide();
    menu->deleteLater();
}

void PopUpMenu::fill(const Menu& menu) {
    for (const MenuItem& entry : menu.entries) {
        const auto* const command = std::get_if<MenuCommand>(&entry);
        if (command == nullptr) {
            menu_->addSeparator();
            continue;
        }
        // A single ampersand would mark a mnemonic.
        const QString title =
            QString::fromStdString(command->title).replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* const action = menu_->addAction(title);
        action->setCheckable(command->isChecked.has_value());
        action->setChecked(command->isChecked.value_or(false));
        if (command->keyEquivalent != 0)
            action->setShortcut(QKeySequence{keyOf(command->keyEquivalent)});
        QObject::connect(
            action, &QAction::triggered, menu_.get(),
            lifetime_.guard([this, chosen = command->action](bool) { chosen_ = chosen; }));
    }
}

void PopUpMenu::end() {
    menu_->close();
    finish();
}

void PopUpMenu::finish() {
    // The call may destroy this menu.
    const MenuAction chosen = chosen_;
    if (const auto closed = std::exchange(closed_, nullptr))
        closed(chosen);
}

}
