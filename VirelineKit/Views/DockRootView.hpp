/// The view of one dock: turns the shared model, the panel's state and the pointer into a scene,
/// and the pointer's gestures into actions. Owned by the panel that hosts it.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Layout/PanelPlanner.hpp"
#include "Layout/StripLayout.hpp"
#include "Model/DockViewModel.hpp"
#include "Platform/PanelWindow.hpp"
#include "Views/Contents/DockScene.hpp"
#include "Views/Contents/DockTiles.hpp"
#include "Views/Contents/DockViewContext.hpp"
#include "Views/Contents/PanelUIState.hpp"
#include "Views/Contents/TileLooks.hpp"
#include "Views/Input/DockDrops.hpp"
#include "Views/Input/DockMenus.hpp"
#include "Views/Input/TileGestures.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

class DockRootView : private NonCopyable {
public:
    DockRootView(const DockViewContext& context, PanelUIState& ui, const PanelSpec& spec,
                 bool takesWholeWindow);

    /// Called when the scene has changed, possibly many times per frame. The scene is only built by
    /// `makeScene`, so invalidating is cheap.
    std::function<void()> onInvalidate;
    /// Called to open a popup menu.
    std::function<void(const Menu&, const MenuPlace&)> onMenuRequest;
    /// Called with true when the drag of a tile starts, and with false when it ends.
    std::function<void(bool)> onReorderDrag;

    /// Builds the scene. It describes changes relative to the previous call, so there must be only
    /// one caller, once per frame.
    [[nodiscard]] Scene makeScene();

    /// Applies a new plan for the hosting panel. The view has the size of the planned frame. With
    /// `takesWholeWindow`, the whole window takes the pointer; an auto-hiding panel needs that to
    /// know when the pointer leaves.
    void update(const PanelSpec& spec, bool takesWholeWindow);

    /// The maximum extent to which the dock draws beyond the view, with the current tiles and
    /// settings.
    [[nodiscard]] Overhang overhang() const;

    void pointerEvent(const PointerEvent& event);

    /// A drag from another program, as in `PanelWindowListener`. Returns whether it contains files.
    bool dragEntered(const std::vector<std::string>& urls) { return drops_.entered(urls); }
    bool dragMoved(Point at);
    void dragExited() { drops_.exited(); }
    bool dropped(Point at);

    /// The tiles as assistive technology presents them; none while the dock is collapsed.
    [[nodiscard]] std::vector<AccessibleTile> accessibleTiles();
    /// Acts as if the tile with this serial were tapped, or its menu requested.
    void press(std::uint32_t serial);
    void showMenu(std::uint32_t serial);

private:
    void invalidate();
    void layoutIfNeeded();
    /// The current one, which the last layout may not have yet.
    [[nodiscard]] double iconSize() const;
    [[nodiscard]] StripLayout::Request layoutRequest() const;
    [[nodiscard]] Scene makeExpandedScene();
    [[nodiscard]] std::optional<LabelLook> label() const;
    /// The index of the tile under the pointer, in the current layout.
    [[nodiscard]] std::optional<std::size_t> hoveredTile() const;
    [[nodiscard]] Rect inputRegion() const;

    [[nodiscard]] std::optional<std::size_t> indexAt(Point p);
    [[nodiscard]] DockTile* tileAt(Point p);
    void pointerMoved(Point p);
    void magnifyAt(Point p);
    void pointerExited();
    void released(const PointerEvent& event);
    void middlePressed(Point p);
    void reorderDragged(bool isDragged);
    void requestMenuAt(Point p);
    void requestMenu(std::size_t index);
    /// Where a menu opens that belongs to this point of the strip.
    [[nodiscard]] MenuPlace menuPlace(Point p) const;
    [[nodiscard]] DockDrops::Spot spotAt(Point p);

    DockViewContext context_;
    PanelUIState& ui_;
    PanelSpec spec_;
    bool takesWholeWindow_;

    DockTiles tiles_;
    TileLooks looks_;
    StripLayout::Request request_;
    StripFrames frames_;
    bool tilesAreStale_ = true;
    bool layoutIsStale_ = true;
    /// Apply to the next scene only.
    bool listChanged_ = false;
    bool settles_ = false;
    /// Whether the previous scene was that of a collapsed dock.
    bool wasCollapsed_ = false;
    /// See `Scene::viewPlace`.
    Point viewPlace_;

    /// The pointer's position, while it is over the view.
    std::optional<Point> pointer_;
    /// The pointer's position along the axis, while it magnifies tiles.
    std::optional<double> cursorAxis_;
    TileGestures gestures_;
    DockDrops drops_;
    DockMenus menus_;

    std::array<Subscription, 9> observations_;
    Lifetime lifetime_;
};

}
