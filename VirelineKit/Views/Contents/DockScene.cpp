#include "Views/Contents/DockScene.hpp"

#include "Model/DockMetrics.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace vireline::DockScene {
namespace {

constexpr Curve listChange{0.2, Easing::easeInOut};
constexpr Curve labelChange{0.12, Easing::easeOut};
constexpr Curve pulse{0.1, Easing::easeOut};
constexpr Curve dropTarget{0.12, Easing::easeOut};
constexpr Curve makingRoom{0.15, Easing::easeInOut};
constexpr Curve settling{0.2, Easing::easeInOut};
constexpr Curve dotChange{0.15, Easing::easeOut};
constexpr Curve bouncing{0.3, Easing::easeInOut, true};
constexpr Curve landing{0.2, Easing::easeOut};

constexpr double pulseScale = 0.92;
constexpr double dropTargetScale = 1.1;
constexpr double handleOpacity = 0.4;
/// The margin at each end of a collapsed dock's handle.
constexpr double handlePadding = 10;
constexpr double separatorRadius = 0.5;
constexpr double labelFontSize = 12;
/// A badge's height, and its width for one, two and three characters, as fractions of the icon's
/// size.
constexpr double badgeHeight = 0.4;
constexpr std::array badgeWidths{0.4, 0.52, 0.68};
/// How far a badge extends beyond the icon's side.
constexpr double badgeReach = 0.08;
/// A progress bar's height and its distances from the icon's bottom and sides, as fractions of the
/// icon's size.
constexpr double progressHeight = 0.13;
constexpr double progressBottom = 0.1;
constexpr double progressInset = 0.08;
/// A mark's length, in diameters of a dot, and on the line of a collapsed dock, in points.
constexpr double markLength = 4;
constexpr double lineMarkLength = 28;
constexpr Size labelPadding{9, 3};

double scaleOf(const TileLook& tile) {
    if (tile.isPulsing)
        return pulseScale;
    if (tile.isBeingDragged)
        return StripLayout::draggedScale;
    return tile.isDropTargeted ? dropTargetScale : 1;
}

/// The motion of nodes when the list of tiles changes.
Motion listMotion(const DockLook& look) {
    Motion motion;
    if (look.listChanged)
        motion.frame = listChange;
    motion.presence = listChange;
    return motion;
}

/// A tile grows without animation when its drag starts, and shrinks while it moves back.
std::optional<Curve> scaleMotion(const TileLook& tile) {
    if (tile.isBeingDragged && !tile.wasBeingDragged)
        return std::nullopt;
    if (tile.wasBeingDragged && !tile.isBeingDragged)
        return settling;
    return tile.isDropTargeted || tile.wasDropTargeted ? dropTarget : pulse;
}

bool bounces(const TileLook& tile) {
    return tile.isLaunching || tile.isBobbing;
}

Motion tileMotion(const DockLook& look, const TileLook& tile) {
    Motion motion = listMotion(look);
    if (!tile.isBeingDragged)
        motion.slide = look.settles ? settling : makingRoom;
    motion.scale = scaleMotion(tile);
    motion.bounce = bounces(tile) ? bouncing : landing;
    return motion;
}

ImageNode imageOf(const TileLook& tile, const StripFrames& frames) {
    return {.image = tile.image,
            .restingSide = frames.iconSize,
            .largestSide = std::max(frames.magnifiedIconSize, frames.iconSize * dropTargetScale)};
}

Rect badgeFrame(const Rect& icon, std::size_t characters) {
    const std::size_t last = badgeWidths.size() - 1;
    const double width = badgeWidths.at(std::min(std::max<std::size_t>(characters, 1) - 1, last));
    return {icon.maxX() + (badgeReach - width) * icon.width, icon.minY(), width * icon.width,
            badgeHeight * icon.height};
}

Rect progressFrame(const Rect& icon) {
    return {icon.minX() + progressInset * icon.width,
            icon.maxY() - (progressBottom + progressHeight) * icon.height,
            (1 - 2 * progressInset) * icon.width, progressHeight * icon.height};
}

/// In place of the dot, and longer along the axis.
Rect markFrame(const Rect& dot, const Edge& edge) {
    const double longer = (markLength - 1) * std::max(dot.width, dot.height);
    return edge.isHorizontal() ? Rect{dot.x - longer / 2, dot.y, dot.width + longer, dot.height}
                               : Rect{dot.x, dot.y - longer / 2, dot.width, dot.height + longer};
}

/// What the app signals. `node` has the motion of the tile's other nodes.
void addSignals(std::vector<SceneNode>& nodes, const DockLook& look, const TileLook& tile,
                const TileFrames& frames, SceneNode node) {
    node.motion.presence = dotChange;
    const auto add = [&](NodeID::Part part, const Rect& frame, auto content) {
        node.id.part = part;
        node.frame = frame;
        node.content = std::move(content);
        nodes.push_back(node);
    };
    if (tile.wantsAttention)
        add(NodeID::Part::mark, markFrame(frames.dot, look.edge), MarkNode{});
    if (tile.progress)
        add(NodeID::Part::progress, progressFrame(frames.icon), ProgressNode{*tile.progress});
    if (!tile.badge.empty())
        add(NodeID::Part::badge, badgeFrame(frames.icon, tile.badge.size()), BadgeNode{tile.badge});
}

void addTile(std::vector<SceneNode>& nodes, const DockLook& look, std::size_t index) {
    const TileLook& tile = look.tiles[index];
    const TileFrames& frames = look.frames.tiles[index];
    SceneNode node{.id = {NodeID::Part::icon, tile.serial},
                   .frame = frames.icon,
                   .content = imageOf(tile, look.frames)};
    node.scale = scaleOf(tile);
    node.anchor = frames.icon.united(frames.dot).center();
    node.slide = look.edge.vector(tile.slide, 0);
    node.bounce = look.edge.vector(0, bounces(tile) ? StripLayout::bounceHeight : 0);
    node.motion = tileMotion(look, tile);
    nodes.push_back(node);

    // Every tile has a dot, which is transparent if its app is not running.
    node.id.part = NodeID::Part::dot;
    node.frame = frames.dot;
    node.content = DotNode{};
    node.opacity = tile.isRunning && !tile.wantsAttention ? 1 : 0;
    node.motion.opacity = dotChange;
    nodes.push_back(node);
    node.opacity = 1;
    addSignals(nodes, look, tile, frames, std::move(node));
}

}

Scene expanded(const DockLook& look) {
    Scene scene;
    auto& nodes = scene.nodes;
    nodes.reserve(2 * look.tiles.size() + look.frames.separators.size() + 2);
    nodes.push_back({.id = {NodeID::Part::strip},
                     .frame = look.frames.glass,
                     .content = GlassNode{DockMetrics::cornerRadius},
                     .motion = listMotion(look)});
    // Separators are numbered from the end, so that the one before the utility tiles keeps its
    // identity when the running group appears or disappears.
    auto separator = static_cast<std::uint32_t>(look.frames.separators.size());
    for (const Rect& frame : look.frames.separators) {
        nodes.push_back({.id = {NodeID::Part::separator, --separator},
                         .frame = frame,
                         .content = SeparatorNode{separatorRadius},
                         .motion = listMotion(look)});
    }
    std::optional<std::size_t> dragged;
    for (std::size_t i = 0; i < look.tiles.size(); ++i) {
        if (look.tiles[i].isBeingDragged) {
            dragged = i;
        } else {
            addTile(nodes, look, i);
        }
    }
    if (dragged)
        addTile(nodes, look, *dragged);
    if (look.label) {
        const auto& [tile, text] = *look.label;
        // Each tile has a label of its own, so that labels cross-fade.
        nodes.push_back({.id = {NodeID::Part::label, look.tiles.at(tile).serial},
                         .frame = StripLayout::labelZone(look.frames, look.edge, tile),
                         .content = LabelNode{text, labelFontSize, labelPadding},
                         .motion = {.presence = labelChange}});
    }
    return scene;
}

Scene collapsed(const Edge& edge, const std::vector<LineMark>& marks) {
    const double length = std::max(0.0, edge.length() - 2 * handlePadding);
    Scene scene{{{.id = {NodeID::Part::handle},
                  .frame = edge.rect(handlePadding, length, 0, DockMetrics::sliverThickness),
                  .content = HandleNode{},
                  .opacity = handleOpacity,
                  .motion = {.presence = listChange}}},
                std::nullopt};
    for (const auto& [serial, along] : marks) {
        scene.nodes.push_back({.id = {NodeID::Part::lineMark, serial},
                               .frame = edge.rect(along - lineMarkLength / 2, lineMarkLength, 0,
                                                  DockMetrics::sliverThickness),
                               .content = MarkNode{},
                               .motion = {.presence = dotChange}});
    }
    return scene;
}

}
