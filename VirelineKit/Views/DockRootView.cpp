#include "Views/DockRootView.hpp"

#include "Interaction/DockActions.hpp"
#include "Model/DockMetrics.hpp"
#include "Platform/RunLoop.hpp"
#include "Sources/IconStore.hpp"
#include "Views/Contents/AccessibleTiles.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace vireline {
namespace {

/// The vector between the frames' top-left corners, y downwards. The frames are in global space, y
/// upwards.
Point movement(const Rect& from, const Rect& to) {
    return {to.minX() - from.minX(), from.maxY() - to.maxY()};
}

bool isNear(Point movement, Size size) {
    return std::abs(movement.x) < size.width && std::abs(movement.y) < size.height;
}

}

DockRootView::DockRootView(const DockViewContext& context, PanelUIState& ui, const PanelSpec& spec,
                           bool takesWholeWindow)
    : context_(context)
    , ui_(ui)
    , spec_(spec)
    , takesWholeWindow_(takesWholeWindow)
    , looks_(context_.model, context_.motionSettings)
    , gestures_(context_, tiles_, request_, spec.displayID)
    , drops_(context.actions)
    , menus_(context.actions, context.icons, context.words) {
    const auto invalidated = lifetime_.guard([this] { invalidate(); });
    gestures_.onInvalidate = invalidated;
    gestures_.onDrag = lifetime_.guard([this](bool isDragged) { reorderDragged(isDragged); });
    drops_.onChange = invalidated;
    const auto& model = context_.model;
    const auto rebuilt = lifetime_.guard([this] {
        tilesAreStale_ = true;
        invalidate();
    });
    observations_ = {context_.model.items.observe(rebuilt),
                     context_.icons.observeChanges(rebuilt),
                     context_.model.configuredIconSize.observe(invalidated),
                     context_.model.magnification.observe(invalidated),
                     context_.model.launching.observe(invalidated),
                     context_.model.statuses.observe(invalidated),
                     context_.model.marked.observe(invalidated),
                     context_.model.bobbing.observe(invalidated),
                     ui_.collapsed.observe(invalidated)};
    if (context_.demoCursorFraction && model.magnification.get() > 1) {
        cursorAxis_ =
            *context_.demoCursorFraction * Edge{spec.position, spec.frame.size()}.length();
    }
}

void DockRootView::update(const PanelSpec& spec, bool takesWholeWindow) {
    const Point moved = movement(spec_.frame, spec.frame);
    // A dock that moves far away appears there without an animation.
    if (isNear(moved, spec.frame.size()))
        viewPlace_ = {viewPlace_.x + moved.x, viewPlace_.y + moved.y};
    spec_ = spec;
    takesWholeWindow_ = takesWholeWindow;
    invalidate();
}

void DockRootView::invalidate() {
    layoutIsStale_ = true;
    if (onInvalidate)
        onInvalidate();
}

void DockRootView::layoutIfNeeded() {
    // The end of a drag is reported, and the list may change again from within that.
    while (std::exchange(tilesAreStale_, false)) {
        tiles_.rebuild(context_.model.items.get(), context_.icons, context_.trash);
        listChanged_ = true;
        gestures_.tilesChanged();
    }
    if (!std::exchange(layoutIsStale_, false))
        return;
    request_ = layoutRequest();
    frames_ = StripLayout::layout(request_);
}

double DockRootView::iconSize() const {
    return DockOrdering::fittedIconSize(DockOrdering::Counts::of(context_.model.items.get()),
                                        spec_.availableWidth,
                                        context_.model.configuredIconSize.get());
}

StripLayout::Request DockRootView::layoutRequest() const {
    StripLayout::Request request;
    request.counts = DockOrdering::Counts::of(context_.model.items.get());
    request.hasDownloads = tiles_.has(TileKind::downloads);
    request.hasTrash = tiles_.has(TileKind::trash);
    request.iconSize = iconSize();
    request.magnification = context_.model.magnification.get();
    request.edge = {spec_.position, spec_.frame.size()};
    // Magnification may have been switched off while the pointer is over the dock.
    if (request.magnification > 1)
        request.cursorAxis = cursorAxis_;
    return request;
}

Overhang DockRootView::overhang() const {
    const StripLayout::Request request = layoutRequest();
    const Point reach = request.edge.vector(0, StripLayout::overhang(request));
    return {.left = std::max(0.0, -reach.x),
            .top = std::max(0.0, -reach.y),
            .right = std::max(0.0, reach.x)};
}

Scene DockRootView::makeScene() {
    layoutIfNeeded();
    const bool isCollapsed = ui_.collapsed.get();
    const Edge& edge = request_.edge;
    Scene scene = isCollapsed
                      ? DockScene::collapsed(edge, looks_.lineMarks(tiles_.all(), frames_, edge))
                      : makeExpandedScene();
    scene.viewPlace = viewPlace_;
    if (isCollapsed) {
        // The view of a collapsed dock is in the gap between the planned frame and the display's
        // edge.
        const Point sunk = edge.vector(0, -DockMetrics::sliverThickness);
        scene.viewPlace = {viewPlace_.x + sunk.x, viewPlace_.y + sunk.y};
    }
    const double strip = request_.iconSize + DockMetrics::stripHeightPadding;
    if (isCollapsed != std::exchange(wasCollapsed_, isCollapsed))
        scene.presenceOffset = edge.vector(0, -std::max(edge.thickness(), strip));
    return scene;
}

Scene DockRootView::makeExpandedScene() {
    const TileLooks::Gestures gestures{.dropTarget = drops_.target(),
                                       .dragged = gestures_.dragged(),
                                       .reorder = gestures_.reorder()};
    Scene scene = DockScene::expanded({.edge = request_.edge,
                                       .frames = frames_,
                                       .tiles = looks_.next(tiles_.all(), gestures),
                                       .label = label(),
                                       .listChanged = std::exchange(listChanged_, false),
                                       .settles = std::exchange(settles_, false)});
    scene.inputRegion = inputRegion();
    scene.followsPointer = request_.cursorAxis.has_value() || gestures.dragged.has_value();
    return scene;
}

std::optional<LabelLook> DockRootView::label() const {
    // Docks at the left and right have no room for labels.
    if (!pointer_ || !request_.edge.isHorizontal())
        return std::nullopt;
    const auto dragged = gestures_.dragged();
    const auto named = dragged ? tiles_.indexOf(*dragged) : hoveredTile();
    return named ? std::optional{LabelLook{*named, tiles_.all()[*named].item.name}} : std::nullopt;
}

std::optional<std::size_t> DockRootView::hoveredTile() const {
    if (!pointer_)
        return std::nullopt;
    const auto hovered = std::ranges::find_if(
        frames_.tiles, [this](const TileFrames& tile) { return tile.hit.contains(*pointer_); });
    if (hovered == frames_.tiles.end())
        return std::nullopt;
    return static_cast<std::size_t>(hovered - frames_.tiles.begin());
}

Rect DockRootView::inputRegion() const {
    const bool grows = pointer_ && request_.magnification > 1;
    const Rect tiles = grows ? StripLayout::fullGrowth(request_) : frames_.glassAtRest;
    if (!takesWholeWindow_)
        return tiles;
    // The view and the gap between it and the display's edge.
    const Edge& edge = request_.edge;
    const double gap = DockMetrics::sliverThickness;
    return tiles.united(edge.rect(0, edge.length(), -gap, gap + edge.thickness()));
}

std::optional<std::size_t> DockRootView::indexAt(Point p) {
    layoutIfNeeded();
    for (std::size_t i = 0; i < frames_.tiles.size(); ++i) {
        if (frames_.tiles[i].hit.contains(p))
            return i;
    }
    return std::nullopt;
}

DockTile* DockRootView::tileAt(Point p) {
    const auto index = indexAt(p);
    return index ? &tiles_.all()[*index] : nullptr;
}

void DockRootView::pointerEvent(const PointerEvent& event) {
    if (event.kind == PointerEvent::Kind::exited)
        return pointerExited();
    if (ui_.collapsed.get()) {
        // A collapsed dock shows no tiles that could be pressed.
        if (event.kind == PointerEvent::Kind::released ||
            event.kind == PointerEvent::Kind::cancelled)
            gestures_.cancel();
        return;
    }
    switch (event.kind) {
    case PointerEvent::Kind::moved:
        pointerMoved(event.position);
        break;
    case PointerEvent::Kind::pressed:
        gestures_.cancel();
        gestures_.press(tileAt(event.position), event.position);
        break;
    case PointerEvent::Kind::released:
        released(event);
        break;
    case PointerEvent::Kind::secondaryPressed:
        requestMenuAt(event.position);
        break;
    case PointerEvent::Kind::middlePressed:
        middlePressed(event.position);
        break;
    case PointerEvent::Kind::cancelled:
        gestures_.cancel();
        break;
    case PointerEvent::Kind::exited:
        break;
    }
}

void DockRootView::pointerMoved(Point p) {
    const auto shows = [this] {
        return std::tuple{pointer_.has_value(), cursorAxis_, hoveredTile()};
    };
    const auto before = shows();
    pointer_ = p;
    gestures_.move(p);
    // The strip is not magnified while a tile is being dragged.
    if (!gestures_.dragged())
        magnifyAt(p);
    // Movement within one tile of a strip that is not magnified changes nothing.
    if (gestures_.isPressed() || shows() != before)
        invalidate();
}

/// The pointer may come before the frame that shows a change of the icons' size.
void DockRootView::magnifyAt(Point p) {
    if (context_.model.magnification.get() <= 1)
        return;
    const Edge edge{spec_.position, spec_.frame.size()};
    const bool magnifies = StripLayout::isInMagnificationBand(p, edge, iconSize());
    cursorAxis_ = magnifies ? std::optional{edge.along(p)} : std::nullopt;
}

void DockRootView::pointerExited() {
    pointer_.reset();
    // A collapsed dock keeps its magnified state.
    if (!ui_.collapsed.get())
        cursorAxis_.reset();
    invalidate();
}

void DockRootView::released(const PointerEvent& event) {
    const Point p = event.position;
    // If the list has changed since the last frame, this may end the press.
    layoutIfNeeded();
    // Before the tile is moved: with another list the dock may get another frame, to which the
    // point would not belong.
    if (gestures_.dragged()) {
        pointer_ = p;
        magnifyAt(p);
    }
    gestures_.release(tileAt(p), p, event.time.value_or(context_.runLoop.now()));
}

void DockRootView::middlePressed(Point p) {
    const DockTile* const tile = tileAt(p);
    if (tile == nullptr || tile->kind != TileKind::app)
        return;
    // The action may replace the tiles.
    const DockItem item = tile->item;
    context_.actions.middleClick(item, spec_.displayID);
}

void DockRootView::reorderDragged(bool isDragged) {
    if (!isDragged) {
        settles_ = true;
        invalidate();
    }
    if (onReorderDrag)
        onReorderDrag(isDragged);
}

void DockRootView::requestMenuAt(Point p) {
    if (const auto tile = indexAt(p))
        requestMenu(*tile);
    else if (frames_.glass.contains(p) && onMenuRequest)
        onMenuRequest(menus_.ofProgram(), menuPlace(p));
}

void DockRootView::requestMenu(std::size_t index) {
    const DockTile& tile = tiles_.all().at(index);
    if (tile.kind == TileKind::app && onMenuRequest)
        onMenuRequest(menus_.ofApp(tile.item, spec_.displayID),
                      menuPlace(frames_.tiles.at(index).hit.center()));
}

MenuPlace DockRootView::menuPlace(Point p) const {
    return StripLayout::menuPlace(frames_, request_.edge, request_.edge.along(p));
}

bool DockRootView::dragMoved(Point at) {
    return drops_.moved(spotAt(at));
}

bool DockRootView::dropped(Point at) {
    return drops_.dropped(spotAt(at));
}

DockDrops::Spot DockRootView::spotAt(Point p) {
    const DockTile* const tile = tileAt(p);
    return {.tile = tile, .isOnStrip = frames_.glass.united(frames_.glassAtRest).contains(p)};
}

std::vector<AccessibleTile> DockRootView::accessibleTiles() {
    if (ui_.collapsed.get())
        return {};
    layoutIfNeeded();
    return AccessibleTiles::describe(tiles_.all(), frames_, context_.model);
}

void DockRootView::press(std::uint32_t serial) {
    layoutIfNeeded();
    if (DockTile* const tile = tiles_.find(serial))
        gestures_.tap(*tile, context_.runLoop.now());
}

void DockRootView::showMenu(std::uint32_t serial) {
    layoutIfNeeded();
    if (const auto index = tiles_.indexOf(serial))
        requestMenu(*index);
}

}
