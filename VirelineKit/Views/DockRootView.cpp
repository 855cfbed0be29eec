#include "Views/DockRootView.hpp"

#include "Model/DockMetrics.hpp"
#include "Platform/PointerSettings.hpp"
#include "Platform/RunLoop.hpp"
#include "Sources/IconStore.hpp"
#include "Views/AccessibleTiles.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace vireline {
namespace {

constexpr double pulseSeconds = 0.1;
/// The distance in points after which a press on a tile becomes a drag.
constexpr double dragThreshold = 4;

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
    : context_(context), ui_(ui), spec_(spec), takesWholeWindow_(takesWholeWindow) {
    const auto invalidated = lifetime_.guard([this] { invalidate(); });
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
    if (std::exchange(tilesAreStale_, false)) {
        tiles_.rebuild(context_.model.items.get(), context_.icons, context_.trash);
        listChanged_ = true;
        if (press_ && !canHold(*press_))
            endDrag(false);
    }
    if (!std::exchange(layoutIsStale_, false))
        return;
    request_ = layoutRequest();
    frames_ = StripLayout::layout(request_);
}

/// Whether the press can go on: its tile still exists and, if it is being dragged, is still pinned.
bool DockRootView::canHold(const Press& press) {
    const DockTile* const tile = tiles_.find(press.serial);
    return tile != nullptr && (!press.isDragging || tile->isPinnedApp());
}

StripLayout::Request DockRootView::layoutRequest() const {
    StripLayout::Request request;
    request.counts = DockOrdering::Counts::of(context_.model.items.get());
    request.hasDownloads = tiles_.has(TileKind::downloads);
    request.hasTrash = tiles_.has(TileKind::trash);
    request.iconSize = DockOrdering::fittedIconSize(request.counts, spec_.availableWidth,
                                                    context_.model.configuredIconSize.get());
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
    Scene scene = isCollapsed ? DockScene::collapsed(edge) : makeExpandedScene();
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
    DockLook look{.edge = request_.edge,
                  .frames = frames_,
                  .tiles = {},
                  .label = label(),
                  .listChanged = std::exchange(listChanged_, false),
                  .settles = std::exchange(settles_, false)};
    look.tiles.reserve(tiles_.all().size());
    int index = 0;
    for (const DockTile& tile : tiles_.all())
        look.tiles.push_back(lookOf(tile, index++));
    shownDropTarget_ = dropTarget_;
    shownDragged_ = press_ && press_->isDragging ? std::optional{press_->serial} : std::nullopt;
    Scene scene = DockScene::expanded(look);
    scene.inputRegion = inputRegion();
    if (request_.magnification <= 1)
        scene.quietRegions = StripLayout::quietRegions(frames_, request_.edge);
    return scene;
}

TileLook DockRootView::lookOf(const DockTile& tile, int index) const {
    TileLook look;
    look.serial = tile.serial;
    look.image = tile.image;
    look.isRunning = tile.item.isRunning;
    look.isLaunching =
        tile.kind == TileKind::app && context_.model.launching.get().contains(tile.item.id);
    look.isPulsing = tile.pulse;
    look.isDropTargeted = dropTarget_ == tile.serial;
    look.wasDropTargeted = shownDropTarget_ == tile.serial;
    look.wasBeingDragged = shownDragged_ == tile.serial;
    if (const auto drag = reorderDrag(); drag && tile.isPinnedApp()) {
        look.isBeingDragged = index == drag->draggedIndex;
        look.slide = look.isBeingDragged ? drag->offset : ReorderMath::neighborOffset(index, *drag);
    }
    return look;
}

std::optional<LabelLook> DockRootView::label() const {
    // Docks at the left and right have no room for labels.
    if (!pointer_ || !request_.edge.isHorizontal())
        return std::nullopt;
    const bool isDragging = press_ && press_->isDragging;
    const auto named = isDragging ? tiles_.indexOf(press_->serial) : hoveredTile();
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
            endDrag(false);
        return;
    }
    switch (event.kind) {
    case PointerEvent::Kind::moved:
        pointerMoved(event.position);
        break;
    case PointerEvent::Kind::pressed:
        pressed(event.position);
        break;
    case PointerEvent::Kind::released:
        released(event);
        break;
    case PointerEvent::Kind::secondaryPressed:
        if (const auto tile = indexAt(event.position))
            requestMenu(*tile);
        else if (frames_.glass.contains(event.position))
            requestProgramMenu(event.position);
        break;
    case PointerEvent::Kind::cancelled:
        endDrag(false);
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
    if (press_)
        drag(*press_, p);
    // The strip is not magnified while a tile is being dragged.
    const bool isDragging = press_ && press_->isDragging;
    if (!isDragging && context_.model.magnification.get() > 1) {
        const Edge edge{spec_.position, spec_.frame.size()};
        const bool magnifies = StripLayout::isInMagnificationBand(p, edge, request_.iconSize);
        cursorAxis_ = magnifies ? std::optional{edge.along(p)} : std::nullopt;
    }
    // Movement within one tile of a strip that is not magnified changes nothing.
    if (press_ || shows() != before)
        invalidate();
}

void DockRootView::pointerExited() {
    pointer_.reset();
    // A collapsed dock keeps its magnified state.
    if (!ui_.collapsed.get())
        cursorAxis_.reset();
    invalidate();
}

void DockRootView::pressed(Point p) {
    endDrag(false);
    const DockTile* const tile = tileAt(p);
    press_ = tile != nullptr ? std::optional{Press{.serial = tile->serial, .at = p}} : std::nullopt;
}

void DockRootView::released(const PointerEvent& event) {
    const Point p = event.position;
    // If the list has changed since the last frame, this may end the press.
    layoutIfNeeded();
    if (press_ && press_->isDragging) {
        drag(*press_, p);
        endDrag(true);
        pointerMoved(p);
        return;
    }
    DockTile* const tile = tileAt(p);
    const bool isTap = tile != nullptr && press_ && press_->serial == tile->serial;
    press_.reset();
    if (isTap)
        tap(*tile, event.time.value_or(context_.runLoop.now()));
}

void DockRootView::tap(DockTile& tile, double time) {
    tile.pulse = true;
    tile.pulseEnd =
        context_.runLoop.after(pulseSeconds, lifetime_.guard([this, serial = tile.serial] {
            DockTile* const pulsing = tiles_.find(serial);
            if (pulsing != nullptr)
                pulsing->pulse = false;
            invalidate();
        }));
    const bool isDouble =
        tile.kind == TileKind::app &&
        tile.taps.registerTap(time, context_.pointerSettings.doubleClickInterval()) ==
            TapTracker::Resolution::doubled;
    invalidate();
    // The action may replace the tiles, so use only copies from here on.
    const DockItem item = tile.item;
    if (tile.kind != TileKind::app) {
        context_.actions.openFolder(item.url);
    } else if (isDouble) {
        context_.actions.doubleClick(item, spec_.displayID);
    } else {
        context_.actions.leftClick(item, spec_.displayID);
    }
}

void DockRootView::requestMenu(std::size_t index) {
    const DockTile& tile = tiles_.all().at(index);
    if (tile.kind != TileKind::app || !onMenuRequest)
        return;
    const bool canRemove = tile.item.isPinned && context_.actions.isManualMode();
    auto entries = ClickPolicy::menuEntries(tile.item.isRunning, canRemove);
    Menu menu;
    for (const MenuEntry entry : entries) {
        menu.entries.emplace_back(MenuCommand{title(entry, context_.words)});
    }
    auto closed = [this, entries = std::move(entries),
                   item = tile.item](std::optional<std::size_t> chosen) {
        if (chosen)
            context_.actions.menuSelect(entries.at(*chosen), item, spec_.displayID);
    };
    const double middle = request_.edge.along(frames_.tiles.at(index).hit.center());
    onMenuRequest(menu, StripLayout::menuPlace(frames_, request_.edge, middle),
                  lifetime_.guard(std::move(closed)));
}

/// A right-click that misses a tile by a few points should not offer to quit the program, so that
/// entry exists only if there is no status item to quit it with.
void DockRootView::requestProgramMenu(Point at) {
    if (!onMenuRequest)
        return;
    Menu menu{{MenuCommand{"Settings…"}}};
    if (!context_.actions.hasStatusItem())
        menu.entries.emplace_back(MenuCommand{"Quit Vireline"});
    const auto closed = [this](std::optional<std::size_t> chosen) {
        if (chosen == 0U)
            context_.actions.showSettings();
        else if (chosen == 1U)
            context_.actions.quit();
    };
    onMenuRequest(menu, StripLayout::menuPlace(frames_, request_.edge, request_.edge.along(at)),
                  lifetime_.guard(closed));
}

void DockRootView::drag(Press& press, Point p) {
    const Point moved{p.x - press.at.x, p.y - press.at.y};
    if (!press.isDragging) {
        const DockTile* const tile = tiles_.find(press.serial);
        const bool comesOff =
            tile != nullptr && tile->isPinnedApp() && std::hypot(moved.x, moved.y) >= dragThreshold;
        if (!comesOff)
            return;
        press.isDragging = true;
        if (onReorderDrag)
            onReorderDrag(true);
    }
    press.offset = request_.edge.along(moved);
}

void DockRootView::endDrag(bool isDropped) {
    const bool isDragging = press_ && press_->isDragging;
    const auto drag = reorderDrag();
    press_.reset();
    if (!isDragging)
        return;
    settles_ = true;
    invalidate();
    if (onReorderDrag)
        onReorderDrag(false);
    // The tile may have been removed from the list during the drag.
    if (!drag)
        return;
    const int target = ReorderMath::targetIndex(*drag);
    if (!isDropped || target == drag->draggedIndex)
        return;
    const auto& dragged = tiles_.all()[static_cast<std::size_t>(drag->draggedIndex)];
    context_.actions.moveApp(std::string{dragged.item.id}, target);
}

std::optional<ReorderMath::Drag> DockRootView::reorderDrag() const {
    if (!press_ || !press_->isDragging)
        return std::nullopt;
    const auto dragged = tiles_.indexOf(press_->serial);
    if (!dragged)
        return std::nullopt;
    return ReorderMath::Drag{.draggedIndex = static_cast<int>(*dragged),
                             .offset = press_->offset,
                             .slot = request_.iconSize + DockMetrics::iconSpacing,
                             .count = request_.counts.pinned};
}

bool DockRootView::dragEntered(const std::vector<std::string>& urls) {
    draggedFiles_.clear();
    for (const std::string& text : urls) {
        if (auto url = FileURL::parse(text))
            draggedFiles_.push_back(*std::move(url));
    }
    return !draggedFiles_.empty();
}

bool DockRootView::dragMoved(Point at) {
    const DockTile* const tile = tileAt(at);
    const bool isOverTrash = tile != nullptr && tile->kind == TileKind::trash;
    const bool canDrop =
        !draggedFiles_.empty() && frames_.glass.united(frames_.glassAtRest).contains(at);
    const auto target = canDrop && isOverTrash ? std::optional{tile->serial} : std::nullopt;
    if (std::exchange(dropTarget_, target) != target)
        invalidate();
    return canDrop;
}

void DockRootView::dragExited() {
    draggedFiles_.clear();
    if (std::exchange(dropTarget_, std::nullopt))
        invalidate();
}

bool DockRootView::dropped(Point at) {
    const bool canDrop = dragMoved(at);
    const bool isForTrash = dropTarget_.has_value();
    const auto files = std::exchange(draggedFiles_, {});
    dragExited();
    if (!canDrop)
        return false;
    if (isForTrash) {
        context_.actions.trashFiles(files);
    } else {
        for (const FileURL& url : files)
            context_.actions.addApp(url);
    }
    return true;
}

std::vector<AccessibleTile> DockRootView::accessibleTiles() {
    if (ui_.collapsed.get())
        return {};
    layoutIfNeeded();
    return AccessibleTiles::describe(tiles_.all(), frames_);
}

void DockRootView::press(std::uint32_t serial) {
    layoutIfNeeded();
    if (DockTile* const tile = tiles_.find(serial))
        tap(*tile, context_.runLoop.now());
}

void DockRootView::showMenu(std::uint32_t serial) {
    layoutIfNeeded();
    if (const auto index = tiles_.indexOf(serial))
        requestMenu(*index);
}

}
