/// Which docks exist, where they are, and how they react to the pointer.
#include "Storm/Model.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vireline::storm {
namespace {

std::string listed(const std::vector<std::uint32_t>& numbers) {
    std::string text = "[";
    for (const std::uint32_t number : numbers)
        text += (text.size() > 1 ? ", " : "") + std::to_string(number);
    return text + "]";
}

std::vector<std::uint32_t> numbersOf(const std::vector<PlatformScreen>& screens) {
    std::vector<std::uint32_t> numbers;
    for (const PlatformScreen& screen : screens) {
        if (screen.number)
            numbers.push_back(*screen.number);
    }
    return numbers;
}

}

void Model::reconcile() {
    const auto& screens = around_.platform.screens.list;
    removeElsewhere();
    const auto planned =
        plannedDocks(screens, {counts(), settings.iconSize, magnification(), settings.position});
    std::vector<std::uint32_t> desired;
    std::vector<const PlannedDock*> created;
    std::vector<const PlannedDock*> reframed;
    for (const PlannedDock& plan : planned) {
        desired.push_back(plan.display);
        const auto dock = docks.find(plan.display);
        if (dock == docks.end())
            created.push_back(&plan);
        else if (dock->second.frame != plan.frame)
            reframed.push_back(&plan);
    }
    std::vector<std::uint32_t> gone;
    for (const auto& [display, dock] : docks) {
        if (std::ranges::count(desired, display) == 0)
            gone.push_back(display);
    }
    line("reconcile screens=" + listed(numbersOf(screens)) + " desired=" + listed(desired) +
         " create=" + std::to_string(created.size()) + " destroy=" + std::to_string(gone.size()) +
         " reframe=" + std::to_string(reframed.size()));
    for (const std::uint32_t display : gone) {
        docks.erase(display);
        line("destroyed panel #" + std::to_string(display));
    }
    for (const PlannedDock* const plan : reframed)
        line("reframed panel #" + std::to_string(plan->display) + " -> (*)");
    for (const PlannedDock* const plan : created) {
        docks[plan->display] = fresh(*plan);
        line("created panel #" + std::to_string(plan->display) +
             " at (*) autoHide=" + (settings.autoHide ? "true" : "false"));
    }
    for (const PlannedDock& plan : planned)
        take(docks.at(plan.display), plan);
    bands = guardBands(screens, desired);
    displays = eventFrames(screens);
}

void Model::recognise(const std::vector<DockID>& ids, const std::map<std::uint32_t, int>& made,
                      const std::map<std::uint32_t, ModelDock>& before) {
    const auto planned =
        plannedDocks(around_.platform.screens.list,
                     {counts(), settings.iconSize, magnification(), settings.position});
    for (const PlannedDock& plan : planned) {
        const auto dock = docks.find(plan.display);
        const auto id = std::ranges::find(ids, plan.display, &DockID::display);
        if (dock == docks.end() || id == ids.end() || dock->second.id == *id)
            continue;
        const auto kept = before.find(plan.display);
        dock->second = kept != before.end() && kept->second.id == *id ? kept->second : fresh(plan);
        dock->second.id = *id;
        take(dock->second, plan);
    }
    incarnations_ = made;
}

/// A dock belongs to one edge.
void Model::removeElsewhere() {
    for (auto dock = docks.begin(); dock != docks.end();) {
        if (dock->second.position == settings.position) {
            ++dock;
            continue;
        }
        line("rebuilt panel #" + std::to_string(dock->first) + " for position change");
        dock = docks.erase(dock);
    }
}

ModelDock Model::fresh(const PlannedDock& plan) {
    ModelDock dock;
    dock.id = {plan.display, ++incarnations_[plan.display]};
    dock.position = plan.position;
    dock.hides = settings.autoHide;
    dock.isIn = settings.autoHide;
    dock.hasDownloads = around_.platform.userFolders.downloadsFolder.has_value();
    dock.hasTrash = around_.platform.userFolders.trashFolder.has_value();
    dock.tilesAreStale = false;
    return dock;
}

void Model::take(ModelDock& dock, const PlannedDock& plan) const {
    dock.frame = plan.frame;
    dock.available = plan.available;
    const bool hidBefore = std::exchange(dock.hides, settings.autoHide);
    if (dock.hides) {
        if (!hidBefore)
            hideLater(dock);
        return;
    }
    dock.isIn = false;
    dock.hidesAt.reset();
}

ModelDock* Model::find(DockID id) {
    const auto dock = docks.find(id.display);
    return dock == docks.end() || dock->second.id != id ? nullptr : &dock->second;
}

void Model::hideLater(ModelDock& dock) const {
    if (dock.hides && !dock.isIn && !dock.isHeld())
        dock.hidesAt = now_ + nanoseconds(0.6);
}

void Model::entered(DockID id) {
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    dock->hasPointer = true;
    dock->isIn = false;
    dock->hidesAt.reset();
}

void Model::exited(DockID id) {
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    dock->hasPointer = false;
    hideLater(*dock);
}

void Model::filesEntered(DockID id, bool hasFiles) {
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    dock->hasFiles = hasFiles;
    if (!hasFiles)
        return;
    dock->isIn = false;
    dock->hidesAt.reset();
}

void Model::filesLeft(DockID id) {
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    dock->hasFiles = false;
    hideLater(*dock);
}

void Model::pointerWasInterrupted(DockID id) {
    ModelDock* const dock = find(id);
    if (dock != nullptr && dock->isIn)
        dock->isCursorKnown = false;
}

void Model::menuOpened(DockID id) {
    if (ModelDock* const dock = find(id))
        ++dock->menus;
}

void Model::menuClosed(DockID id) {
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    --dock->menus;
    hideLater(*dock);
}

void Model::dropped(DockID id, const std::vector<FileURL>& files, bool isTaken, bool isForTrash) {
    if (ModelDock* const dock = find(id))
        dock->hasFiles = false;
    for (const FileURL& file : files) {
        if (!isTaken)
            break;
        if (!isForTrash)
            addApp(file);
        else if (file == around_.locked)
            line("trash failed for " + file.lastPathComponent() + ": locked");
        else
            line("trashed " + file.lastPathComponent());
    }
    filesLeft(id);
}

void Model::pointer(DockID id, const PointerEvent& event, std::optional<std::size_t> tile) {
    using Kind = PointerEvent::Kind;
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    const bool ends = event.kind == Kind::released || event.kind == Kind::cancelled;
    dock->isButtonDown = !ends && (dock->isButtonDown || event.kind == Kind::pressed);
    if (event.kind == Kind::exited && !dock->isIn) {
        dock->cursor.reset();
        dock->isCursorKnown = true;
    }
    if (dock->isIn) {
        if (ends)
            letGo(*dock);
        return;
    }
    switch (event.kind) {
    case Kind::pressed:
        return press(*dock, event.position, tile);
    case Kind::released:
        return release(*dock, event.position, tile);
    case Kind::cancelled:
        return letGo(*dock);
    case Kind::middlePressed:
        if (tile && *tile < items.size())
            middleClicked(items[*tile]);
        return;
    case Kind::moved:
        if (dock->press) {
            const Point at = dock->press->at;
            const auto tiles = tilesOf(*dock);
            const auto place = static_cast<std::size_t>(
                std::ranges::find(tiles, dock->press->tile) - tiles.begin());
            const bool isPinned = place < items.size() && items[place].isPinned;
            if (isPinned && std::hypot(event.position.x - at.x, event.position.y - at.y) >= 4)
                dock->press->isDragging = true;
        }
        return magnify(*dock, event.position);
    default:
        return;
    }
}

void Model::magnify(ModelDock& dock, Point at) const {
    if (magnification() <= 1 || (dock.press && dock.press->isDragging))
        return;
    const bool isHorizontal = dock.position == DockPosition::bottom;
    const double icon = fittedIconSize(counts(), dock.available, settings.iconSize);
    dock.cursor.reset();
    dock.isCursorKnown = true;
    if (magnifies(at, dock.frame.size(), icon, dock.position))
        dock.cursor = isHorizontal ? at.x : at.y;
}

void Model::press(ModelDock& dock, Point at, std::optional<std::size_t> tile) {
    letGo(dock);
    if (tile)
        dock.press = ModelPress{tilesOf(dock).at(*tile), at};
}

void Model::letGo(ModelDock& dock) const {
    const bool wasDragging = dock.press && dock.press->isDragging;
    dock.press.reset();
    if (wasDragging)
        hideLater(dock);
}

void Model::release(ModelDock& dock, Point at, std::optional<std::size_t> tile) {
    const auto held = dock.press;
    letGo(dock);
    if (!held)
        return;
    const auto tiles = tilesOf(dock);
    if (!held->isDragging) {
        if (tile && tiles.at(*tile) == held->tile)
            tapped(dock.id, *tile);
        return;
    }
    magnify(dock, at);
    const auto from = static_cast<int>(std::ranges::find(tiles, held->tile) - tiles.begin());
    const bool isHorizontal = dock.position == DockPosition::bottom;
    const double offset = isHorizontal ? at.x - held->at.x : at.y - held->at.y;
    const double slot = fittedIconSize(counts(), dock.available, settings.iconSize) + 6;
    const int target = landing(from, offset, slot, counts().pinned);
    if (target != from)
        moveApp(held->tile.id, target);
}

void Model::tapped(DockID id, std::size_t tile) {
    ModelDock* const dock = find(id);
    if (dock == nullptr)
        return;
    if (tile >= items.size()) {
        const auto& folders = around_.platform.userFolders;
        const bool isDownloads = dock->hasDownloads && tile == items.size();
        // The tile keeps the folder that it was created with; here it never changes.
        const auto& name = isDownloads ? "Downloads" : ".Trash";
        static_cast<void>(folders);
        line(std::string{"open folder "} + name);
        return;
    }
    const TileKey key = tilesOf(*dock).at(tile);
    const auto last = dock->taps.find(key);
    const bool isDouble = last != dock->taps.end() && last->second <= seconds() &&
                          seconds() - last->second < around_.platform.pointerSettings.interval;
    if (isDouble)
        dock->taps.erase(last);
    else
        dock->taps[key] = seconds();
    const DockItem item = items[tile];
    if (isDouble && settings.fillOnDoubleClick && around_.platform.accessibility.trusted)
        line("double-click fill " + item.id + " on #" + std::to_string(id.display));
    else
        click(item, id.display);
}

/// Whether an app is summoned depends on its windows, which are not modelled.
void Model::click(const DockItem& item, std::uint32_t display) {
    const auto instances = around_.platform.running.instances(item.id);
    if (instances.empty())
        return line("click launch " + item.id);
    const bool mayBeSummoned = settings.summonOnClick && around_.platform.accessibility.trusted;
    if (mayBeSummoned)
        return line("click * " + item.id + "*");
    static_cast<void>(display);
    line((instances.front().isActive ? "click hide " : "click reopen ") + item.id);
}

void Model::chosen(const DockItem& item, std::uint32_t display, const std::string& title) {
    if (title == "Open" || title == "Show")
        click(item, display);
    else if (title == "Show in Finder")
        line("menu show-in-finder " + item.id);
    else if (title == "Quit")
        line("menu quit " + item.id);
    else if (title == "Remove from Dock")
        removeApp(item.id);
    for (const ApplicationCatalog::Action& action : actionsOf(item)) {
        if (action.name == title)
            line("menu action " + action.id + " of " + item.id);
    }
}

void Model::laidOut(DockID id) {
    ModelDock* const dock = find(id);
    if (dock == nullptr || !std::exchange(dock->tilesAreStale, false))
        return;
    dock->hasDownloads = around_.platform.userFolders.downloadsFolder.has_value();
    dock->hasTrash = around_.platform.userFolders.trashFolder.has_value();
    const auto tiles = tilesOf(*dock);
    std::erase_if(dock->taps,
                  [&](const auto& tap) { return std::ranges::count(tiles, tap.first) == 0; });
    if (!dock->press)
        return;
    const auto place =
        static_cast<std::size_t>(std::ranges::find(tiles, dock->press->tile) - tiles.begin());
    const bool isThere = place < tiles.size();
    const bool isPinned = place < items.size() && items[place].isPinned;
    if (!isThere || (dock->press->isDragging && !isPinned))
        letGo(*dock);
}

void Model::tilesRead(DockID id) {
    const ModelDock* const dock = find(id);
    if (dock != nullptr && !dock->isIn)
        laidOut(id);
}

void Model::iconsChanged() {
    for (auto& [display, dock] : docks)
        dock.tilesAreStale = true;
}

std::vector<TileKey> Model::tilesOf(const ModelDock& dock) const {
    std::vector<TileKey> tiles;
    tiles.reserve(items.size() + 2);
    std::map<std::string, int> seen;
    for (const DockItem& item : items)
        tiles.push_back({item.id, seen[item.id]++});
    if (dock.hasDownloads)
        tiles.push_back({"utility.downloads", 0});
    if (dock.hasTrash)
        tiles.push_back({"utility.trash", 0});
    return tiles;
}

}
