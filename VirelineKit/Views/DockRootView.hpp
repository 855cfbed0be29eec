/// The view of one dock: turns the shared model, the panel's state and the pointer into a scene,
/// and the pointer's gestures into actions. Owned by the panel that hosts it.
#pragma once

#include "Displays/PanelPlanner.hpp"
#include "Displays/PanelUIState.hpp"
#include "Foundation/Lifetime.hpp"
#include "Interaction/DockActions.hpp"
#include "Interaction/TapTracker.hpp"
#include "Model/DockViewModel.hpp"
#include "Views/Menu.hpp"
#include "Views/PointerEvent.hpp"
#include "Views/Scene.hpp"
#include "Views/StripLayout.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace vireline {

class IconStore;
class PointerSettings;
class RunLoop;
class TrashService;

/// What the views of all docks share. Everything outlives the views.
struct DockViewContext {
    DockViewModel& model;
    IconStore& icons;
    const DockActions& actions;
    RunLoop& runLoop;
    const PointerSettings& pointerSettings;
    const TrashService& trash;
    /// Freezes a magnified state for screenshots until the pointer comes.
    std::optional<double> demoCursorFraction;
};

class DockRootView {
public:
    DockRootView(const DockViewContext& context, PanelUIState& ui, const PanelSpec& spec,
                 bool takesWholeWindow);
    DockRootView(const DockRootView&) = delete;
    DockRootView& operator=(const DockRootView&) = delete;
    DockRootView(DockRootView&&) = delete;
    DockRootView& operator=(DockRootView&&) = delete;
    ~DockRootView() = default;

    /// Called with every new scene.
    std::function<void(const Scene&)> onSceneChange;
    /// Asks for a popup menu at a point of the view; the chosen entry's index goes to the callback.
    std::function<void(const Menu&, Point, std::function<void(std::size_t)>)> onMenuRequest;

    [[nodiscard]] const Scene& scene() const noexcept { return scene_; }

    /// A new plan for the hosting panel. The view is as large as the planned frame. An auto-hiding
    /// panel takes the pointer everywhere, so that it knows when the pointer leaves.
    void update(const PanelSpec& spec, bool takesWholeWindow);

    void pointerEvent(const PointerEvent& event);

private:
    enum class TileKind { app, downloads, trash };

    struct Tile {
        TileKind kind = TileKind::app;
        /// A utility tile has a synthetic item.
        DockItem item;
        ImageHandle image;
        /// Names the tile in scenes for as long as it stays in the strip.
        std::uint32_t serial = 0;
        TapTracker taps;
        /// Pressed looks for a moment after a tap; the timer ends it.
        bool pulse = false;
        Timer pulseEnd;
    };

    void rebuildTiles();
    void addTile(std::vector<Tile>& tiles, TileKind kind, DockItem item, ImageHandle image);
    void relayout();
    [[nodiscard]] StripLayout::Request layoutRequest() const;
    [[nodiscard]] Scene collapsedScene() const;
    [[nodiscard]] Scene stripScene() const;
    void addTileNodes(Scene& scene, const Tile& tile, const TileFrames& frames) const;

    void pointerMoved(Point p);
    void pointerExited();
    [[nodiscard]] Tile* tileAt(Point p);
    [[nodiscard]] Tile* tileWithSerial(std::uint32_t serial);
    void tap(Tile& tile);
    void requestMenu(const Tile& tile, Point at);

    DockViewContext context_;
    PanelUIState& ui_;
    PanelSpec spec_;
    bool takesWholeWindow_;

    std::vector<Tile> tiles_;
    std::uint32_t lastSerial_ = 0;
    StripLayout::Request request_;
    StripFrames frames_;
    Scene scene_;

    /// Where the pointer is over the view.
    std::optional<Point> pointer_;
    /// The pointer along the axis while it magnifies.
    std::optional<double> cursorAxis_;
    /// The tile under the last press.
    std::optional<std::uint32_t> pressed_;

    std::array<Subscription, 4> observations_;
    Lifetime lifetime_;
};

}
