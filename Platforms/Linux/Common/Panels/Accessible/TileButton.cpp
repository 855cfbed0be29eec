#include "Panels/Accessible/TileButton.hpp"

#include "Panels/Accessible/DockAccess.hpp"
#include "Platform/PanelWindow.hpp"

#include <QWindow>
#include <utility>

namespace vireline::xdg {

TileButton::TileButton(const DockAccess& dock, QAccessibleInterface& parent, AccessibleTile tile)
    : dock_(dock), parent_(parent), tile_(std::move(tile)) {}

void TileButton::update(const AccessibleTile& tile) {
    const AccessibleTile before = std::exchange(tile_, tile);
    if (before.label != tile.label)
        dock_.notify(*this, QAccessible::NameChanged);
    if (before.value != tile.value)
        dock_.notify(*this, QAccessible::DescriptionChanged);
}

QWindow* TileButton::window() const {
    return &dock_.window;
}

QString TileButton::text(QAccessible::Text kind) const {
    switch (kind) {
    case QAccessible::Name:
        return QString::fromStdString(tile_.label);
    case QAccessible::Description:
        return QString::fromStdString(tile_.value.value_or(""));
    default:
        return {};
    }
}

QRect TileButton::rect() const {
    return dock_.place(tile_.frame);
}

QAccessible::State TileButton::state() const {
    return parent_.state();
}

void* TileButton::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList TileButton::actionNames() const {
    QStringList names{pressAction()};
    if (tile_.hasMenu)
        names.append(showMenuAction());
    return names;
}

void TileButton::doAction(const QString& name) {
    auto& listener = dock_.listener;
    const auto soon = [this](auto function) {
        QMetaObject::invokeMethod(&dock_.window, std::move(function), Qt::QueuedConnection);
    };
    if (name == pressAction())
        soon([&listener, id = tile_.id] { listener.pressTile(id); });
    else if (name == showMenuAction() && tile_.hasMenu)
        soon([&listener, id = tile_.id] { listener.showTileMenu(id); });
}

}
