/// A dock's window for assistive technology: a window with one button per tile. A tile keeps its
/// button for as long as it is in the strip.
#pragma once

#include "Panels/Accessible/Registered.hpp"
#include "Panels/Accessible/TileButton.hpp"

#include <QAccessibleObject>
#include <vector>

namespace vireline::xdg {

class DockInterface final : public QAccessibleObject {
public:
    DockInterface(const DockAccess& dock, const std::vector<AccessibleTile>& tiles);

    /// Replaces the tiles and announces the changes. Destroys the buttons of removed tiles.
    void setTiles(const std::vector<AccessibleTile>& tiles);

    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Window; }
    [[nodiscard]] QAccessible::State state() const override;

private:
    using Buttons = std::vector<Registered<TileButton>>;

    void endOthers(const std::vector<AccessibleTile>& tiles);
    /// Sorts the remaining buttons in the order of `tiles`; returns whether that changed anything.
    bool reorder(const std::vector<AccessibleTile>& tiles);

    const DockAccess& dock_;
    /// In the order of the strip.
    Buttons buttons_;
};

}
