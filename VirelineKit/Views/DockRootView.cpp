#include "Views/DockRootView.hpp"

#include "Displays/DockMetrics.hpp"
#include "Interaction/TrashService.hpp"
#include "Platform/PointerSettings.hpp"
#include "Platform/RunLoop.hpp"
#include "Sources/IconStore.hpp"

#include <algorithm>
#include <utility>

namespace vireline {
namespace {

constexpr double pulseSeconds = 0.1;
constexpr double pulseScale = 0.92;
constexpr double handleOpacity = 0.4;
/// At each end of a collapsed dock's handle.
constexpr double handlePadding = 10;
constexpr double separatorRadius = 0.5;
constexpr double labelFontSize = 12;
constexpr Size labelPadding{9, 3};

}

DockRootView::DockRootView(const DockViewContext& context, PanelUIState& ui, const PanelSpec& spec,
                           bool takesWholeWindow)
    : context_(context), ui_(ui), spec_(spec), takesWholeWindow_(takesWholeWindow) {
    const auto relayoutSoon = lifetime_.guard([this] { relayout(); });
    observations_ = {context_.model.items.observe(lifetime_.guard([this] { rebuildTiles(); })),
                     context_.model.configuredIconSize.observe(relayoutSoon),
                     context_.model.magnification.observe(relayoutSoon),
                     ui_.collapsed.observe(relayoutSoon)};
    if (context_.demoCursorFraction && context_.model.magnification.get() > 1) {
        cursorAxis_ = *context_.demoCursorFraction * layoutRequest().edge.length();
    }
    rebuildTiles();
}

void DockRootView::update(const PanelSpec& spec, bool takesWholeWindow) {
    spec_ = spec;
    takesWholeWindow_ = takesWholeWindow;
    relayout();
}

void DockRootView::rebuildTiles() {
    std::vector<Tile> tiles;
    for (const DockItem& item : context_.model.items.get()) {
        addTile(tiles, TileKind::app, item, context_.icons.icon(item.url.path(), item.id));
    }
    if (const auto url = context_.trash.downloadsURL()) {
        addTile(tiles, TileKind::downloads, {IconStore::downloadsKey, "Downloads", *url},
                context_.icons.icon(url->path(), IconStore::downloadsKey));
    }
    if (const auto url = context_.trash.trashURL()) {
        addTile(tiles, TileKind::trash, {IconStore::trashKey, "Trash", *url},
                context_.icons.trashIcon());
    }
    tiles_ = std::move(tiles);
    relayout();
}

/// A tile that was there before keeps its state. Of several with one identity, the first of the old
/// ones goes to the first of the new.
void DockRootView::addTile(std::vector<Tile>& tiles, TileKind kind, DockItem item,
                           ImageHandle image) {
    Tile tile;
    const auto before = std::ranges::find_if(
        tiles_, [&](const Tile& old) { return old.serial != 0 && old.item.id == item.id; });
    if (before != tiles_.end()) {
        tile = std::move(*before);
        before->serial = 0;
    } else {
        tile.serial = ++lastSerial_;
    }
    tile.kind = kind;
    tile.item = std::move(item);
    tile.image = std::move(image);
    tiles.push_back(std::move(tile));
}

StripLayout::Request DockRootView::layoutRequest() const {
    const auto has = [this](TileKind kind) {
        return std::ranges::any_of(tiles_, [=](const Tile& tile) { return tile.kind == kind; });
    };
    const auto& items = context_.model.items.get();
    StripLayout::Request request;
    request.pinnedCount = static_cast<int>(std::ranges::count_if(items, &DockItem::isPinned));
    request.unpinnedRunningCount = static_cast<int>(items.size()) - request.pinnedCount;
    request.hasDownloads = has(TileKind::downloads);
    request.hasTrash = has(TileKind::trash);
    request.iconSize = DockOrdering::fittedIconSize(request.counts(), spec_.availableWidth,
                                                    context_.model.configuredIconSize.get());
    request.magnification = context_.model.magnification.get();
    request.edge = {spec_.position, spec_.frame.size()};
    request.cursorAxis = cursorAxis_;
    return request;
}

void DockRootView::relayout() {
    request_ = layoutRequest();
    frames_ = StripLayout::layout(request_);
    scene_ = ui_.collapsed.get() ? collapsedScene() : stripScene();
    if (onSceneChange)
        onSceneChange(scene_);
}

Scene DockRootView::collapsedScene() const {
    const Edge& edge = request_.edge;
    SceneNode handle{.id = {NodeID::Part::handle}, .frame = {}, .content = HandleNode{}};
    handle.frame = edge.rect(handlePadding, std::max(0.0, edge.length() - 2 * handlePadding), 0,
                             DockMetrics::sliverThickness);
    handle.opacity = handleOpacity;
    return {{std::move(handle)}, std::nullopt};
}

Scene DockRootView::stripScene() const {
    Scene scene;
    scene.nodes.reserve(2 * frames_.tiles.size() + frames_.separators.size() + 2);
    scene.nodes.push_back({.id = {NodeID::Part::strip},
                           .frame = frames_.glass,
                           .content = GlassNode{DockMetrics::cornerRadius}});
    for (std::size_t i = 0; i < frames_.separators.size(); ++i) {
        scene.nodes.push_back({.id = {NodeID::Part::separator, static_cast<std::uint32_t>(i)},
                               .frame = frames_.separators[i],
                               .content = SeparatorNode{separatorRadius}});
    }
    const Tile* hovered = nullptr;
    for (std::size_t i = 0; i < tiles_.size(); ++i) {
        addTileNodes(scene, tiles_[i], frames_.tiles[i]);
        if (pointer_ && frames_.tiles[i].hit.contains(*pointer_))
            hovered = &tiles_[i];
    }
    if (hovered != nullptr && request_.edge.isHorizontal()) {
        scene.nodes.push_back(
            {.id = {NodeID::Part::label, hovered->serial},
             .frame = frames_.labelZone,
             .content = LabelNode{hovered->item.name, labelFontSize, labelPadding}});
    }
    if (!takesWholeWindow_) {
        const bool grows = pointer_ && request_.magnification > 1;
        scene.inputRegion = grows ? StripLayout::fullGrowth(request_) : frames_.glassAtRest;
    }
    return scene;
}

void DockRootView::addTileNodes(Scene& scene, const Tile& tile, const TileFrames& frames) const {
    SceneNode icon{.id = {NodeID::Part::icon, tile.serial},
                   .frame = frames.icon,
                   .content = ImageNode{tile.image}};
    // Utility tiles keep the dot's place free, so that their icons line up with those of apps.
    SceneNode dot{
        .id = {NodeID::Part::dot, tile.serial}, .frame = frames.dot, .content = DotNode{}};
    dot.opacity = tile.item.isRunning ? 1 : 0;
    const double scale = tile.pulse ? pulseScale : 1;
    for (SceneNode* node : {&icon, &dot}) {
        node->scale = scale;
        node->anchor = frames.icon.united(frames.dot).center();
        scene.nodes.push_back(std::move(*node));
    }
}

void DockRootView::pointerEvent(const PointerEvent& event) {
    if (event.kind == PointerEvent::Kind::exited)
        return pointerExited();
    if (ui_.collapsed.get())
        return;
    Tile* const tile = tileAt(event.position);
    switch (event.kind) {
    case PointerEvent::Kind::moved:
        pointerMoved(event.position);
        break;
    case PointerEvent::Kind::pressed:
        pressed_ = tile != nullptr ? std::optional{tile->serial} : std::nullopt;
        break;
    case PointerEvent::Kind::released: {
        const bool isTap = tile != nullptr && pressed_ == tile->serial;
        pressed_.reset();
        if (isTap)
            tap(*tile);
        break;
    }
    case PointerEvent::Kind::secondaryPressed:
        if (tile != nullptr)
            requestMenu(*tile, event.position);
        break;
    case PointerEvent::Kind::cancelled:
        pressed_.reset();
        break;
    case PointerEvent::Kind::exited:
        break;
    }
}

void DockRootView::pointerMoved(Point p) {
    pointer_ = p;
    if (request_.magnification > 1) {
        const Edge& edge = request_.edge;
        const bool magnifies = StripLayout::isInMagnificationBand(p, edge, request_.iconSize);
        cursorAxis_ = magnifies ? std::optional{edge.along(p)} : std::nullopt;
    }
    relayout();
}

void DockRootView::pointerExited() {
    pointer_.reset();
    pressed_.reset();
    // A collapsed dock keeps its magnified state frozen.
    if (!ui_.collapsed.get())
        cursorAxis_.reset();
    relayout();
}

DockRootView::Tile* DockRootView::tileAt(Point p) {
    for (std::size_t i = 0; i < tiles_.size(); ++i) {
        if (frames_.tiles[i].hit.contains(p))
            return &tiles_[i];
    }
    return nullptr;
}

DockRootView::Tile* DockRootView::tileWithSerial(std::uint32_t serial) {
    const auto found = std::ranges::find(tiles_, serial, &Tile::serial);
    return found == tiles_.end() ? nullptr : &*found;
}

void DockRootView::tap(Tile& tile) {
    tile.pulse = true;
    tile.pulseEnd =
        context_.runLoop.after(pulseSeconds, lifetime_.guard([this, serial = tile.serial] {
            Tile* const pulsing = tileWithSerial(serial);
            if (pulsing == nullptr)
                return;
            pulsing->pulse = false;
            relayout();
        }));
    const auto resolution =
        tile.kind == TileKind::app
            ? tile.taps.registerTap(context_.runLoop.now(),
                                    context_.pointerSettings.doubleClickInterval())
            : TapTracker::Resolution::single;
    relayout();
    // The action may replace the tiles; from here on only the copies count.
    const DockItem item = tile.item;
    if (tile.kind != TileKind::app) {
        context_.actions.openFolder(item.url);
    } else if (resolution == TapTracker::Resolution::doubled) {
        context_.actions.doubleClick(item, spec_.displayID);
    } else {
        context_.actions.leftClick(item, spec_.displayID);
    }
}

void DockRootView::requestMenu(const Tile& tile, Point at) {
    if (tile.kind != TileKind::app || !onMenuRequest)
        return;
    const bool canRemove = tile.item.isPinned && context_.actions.isManualMode();
    auto entries = ClickPolicy::menuEntries(tile.item.isRunning, canRemove);
    Menu menu;
    for (const MenuEntry entry : entries) {
        menu.entries.emplace_back(MenuCommand{std::string{title(entry)}});
    }
    onMenuRequest(
        menu, at,
        lifetime_.guard([this, entries = std::move(entries), item = tile.item](std::size_t chosen) {
            context_.actions.menuSelect(entries.at(chosen), item, spec_.displayID);
        }));
}

}
