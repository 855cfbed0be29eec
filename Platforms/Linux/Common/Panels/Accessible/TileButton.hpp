/// A tile for assistive technology: a push button whose description says whether the app is
/// running. Screen readers speak the description after name and role, whereas they would treat a
/// value as a number.
#pragma once

#include "Presentation/AccessibleTile.hpp"

#include <QAccessibleActionInterface>
#include <QAccessibleInterface>

namespace vireline::xdg {

struct DockAccess;

class TileButton final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TileButton(const DockAccess& dock, QAccessibleInterface& parent, AccessibleTile tile);

    [[nodiscard]] const AccessibleTile& tile() const noexcept { return tile_; }
    /// Updates from a tile with the same ID, and announces the changes.
    void update(const AccessibleTile& tile);

    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override { return &parent_; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    /// Returns at once; the action runs in the event loop's next turn, because it may destroy the
    /// tile.
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

private:
    const DockAccess& dock_;
    QAccessibleInterface& parent_;
    AccessibleTile tile_;
};

}
