#include "Toolkit/PopUpMenu.hpp"

#include "Icons/IconImage.hpp"

#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <cctype>
#include <cmath>
#include <utility>

namespace vireline::xdg {
namespace {

QKeyCombination keyOf(char keyEquivalent) {
    const auto letter = static_cast<unsigned char>(keyEquivalent);
    return QKeyCombination{Qt::ControlModifier, static_cast<Qt::Key>(std::toupper(letter))};
}

/// A single ampersand would mark a mnemonic.
QString plainTitle(const std::string& title) {
    return QString::fromStdString(title).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QIcon iconOf(const Image& image, double scale) {
    const auto* const raster = dynamic_cast<const IconImage*>(&image);
    if (raster == nullptr)
        return {};
    QImage picture = raster->exact(static_cast<int>(std::lround(image.size().width * scale)));
    picture.setDevicePixelRatio(scale);
    return QIcon{QPixmap::fromImage(picture)};
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

PopUpMenu::PopUpMenu(const Menu& menu, const Opener& open, Closed closed)
    : closed_(std::move(closed)), menu_(std::make_unique<KeyedMenu>().release()) {
    fill(menu);
    // Queued, because Qt reports the chosen action only after hiding the menu.
    QObject::connect(menu_.get(), &QMenu::aboutToHide, menu_.get(),
                     lifetime_.guard([this] { finish(); }), Qt::QueuedConnection);
    open(*menu_);
}

void PopUpMenu::Discard::operator()(QMenu* menu) const {
    menu->disconnect();
    menu->hide();
    menu->deleteLater();
}

void PopUpMenu::fill(const Menu& menu) {
    for (const MenuItem& entry : menu.entries) {
        if (const auto* const command = std::get_if<MenuCommand>(&entry)) {
            add(*menu_, *command);
        } else if (const auto* const submenu = std::get_if<MenuSubmenu>(&entry)) {
            QMenu* const shown = menu_->addMenu(plainTitle(submenu->title));
            for (const MenuCommand& inner : submenu->entries)
                add(*shown, inner);
        } else {
            menu_->addSeparator();
        }
    }
}

void PopUpMenu::add(QMenu& menu, const MenuCommand& command) {
    QAction* const action = menu.addAction(plainTitle(command.title));
    action->setCheckable(command.isChecked.has_value());
    action->setChecked(command.isChecked.value_or(false));
    if (command.image) {
        action->setIcon(iconOf(*command.image, menu.devicePixelRatioF()));
        // Qt leaves out icons in menus where the desktop's settings do not ask for them.
        action->setIconVisibleInMenu(true);
    }
    if (command.keyEquivalent != 0)
        action->setShortcut(QKeySequence{keyOf(command.keyEquivalent)});
    QObject::connect(action, &QAction::triggered, menu_.get(),
                     lifetime_.guard([this, chosen = command.action](bool) { chosen_ = chosen; }));
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
