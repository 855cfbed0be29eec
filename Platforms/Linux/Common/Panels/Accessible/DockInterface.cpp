#include "Panels/Accessible/DockInterface.hpp"

#include "Panels/Accessible/DockAccess.hpp"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace vireline::xdg {
namespace {

std::uint32_t tileOf(const Registered<TileButton>& button) {
    return button->tile().id;
}

}

DockInterface::DockInterface(const DockAccess& dock, const std::vector<AccessibleTile>& tiles)
    : QAccessibleObject(&dock.window), dock_(dock) {
    for (const AccessibleTile& tile : tiles)
        buttons_.push_back(makeRegistered<TileButton>(dock_, *this, tile));
}

void DockInterface::setTiles(const std::vector<AccessibleTile>& tiles) {
    endOthers(tiles);
    const bool isReordered = reorder(tiles);
    std::vector<TileButton*> added;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        if (i < buttons_.size() && tileOf(buttons_[i]) == tiles[i].id) {
            buttons_[i]->update(tiles[i]);
            continue;
        }
        const auto place = buttons_.begin() + static_cast<std::ptrdiff_t>(i);
        added.push_back(
            buttons_.insert(place, makeRegistered<TileButton>(dock_, *this, tiles[i]))->get());
    }
    for (TileButton* const button : added)
        dock_.notify(*button, QAccessible::ObjectCreated);
    if (isReordered)
        dock_.notify(*this, QAccessible::ObjectReorder);
}

void DockInterface::endOthers(const std::vector<AccessibleTile>& tiles) {
    const auto isGone = [&](const Registered<TileButton>& button) {
        return std::ranges::find(tiles, tileOf(button), &AccessibleTile::id) == tiles.end();
    };
    for (const auto& button : buttons_) {
        if (isGone(button))
            dock_.notify(*button, QAccessible::ObjectDestroyed);
    }
    std::erase_if(buttons_, isGone);
}

bool DockInterface::reorder(const std::vector<AccessibleTile>& tiles) {
    bool isReordered = false;
    auto next = buttons_.begin();
    for (const AccessibleTile& tile : tiles) {
        const auto found = std::ranges::find(next, buttons_.end(), tile.id, tileOf);
        if (found == buttons_.end())
            continue;
        isReordered = isReordered || found != next;
        std::rotate(next, found, std::next(found));
        ++next;
    }
    return isReordered;
}

QWindow* DockInterface::window() const {
    return &dock_.window;
}

QAccessibleInterface* DockInterface::parent() const {
    return QAccessible::queryAccessibleInterface(QCoreApplication::instance());
}

QAccessibleInterface* DockInterface::child(int index) const {
    return index >= 0 && index < childCount() ? buttons_[static_cast<std::size_t>(index)].get()
                                              : nullptr;
}

QAccessibleInterface* DockInterface::childAt(int x, int y) const {
    const auto found = std::ranges::find_if(
        buttons_, [&](const auto& button) { return button->rect().contains(x, y); });
    return found != buttons_.end() ? found->get() : nullptr;
}

int DockInterface::childCount() const {
    return static_cast<int>(buttons_.size());
}

int DockInterface::indexOfChild(const QAccessibleInterface* child) const {
    const auto found =
        std::ranges::find_if(buttons_, [&](const auto& button) { return button.get() == child; });
    return found != buttons_.end() ? static_cast<int>(found - buttons_.begin()) : -1;
}

QString DockInterface::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? QString::fromStdString(dock_.name) : QString{};
}

QRect DockInterface::rect() const {
    return dock_.window.geometry();
}

QAccessible::State DockInterface::state() const {
    QAccessible::State state;
    state.invisible = !dock_.isShown;
    return state;
}

}
