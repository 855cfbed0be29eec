/// What one dock shows at one moment, as data: nodes to paint, back to front, and regions that
/// take input. Coordinates are the view's own: points, origin top-left, y downwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Presentation/Curve.hpp"
#include "Presentation/Image.hpp"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vireline {

/// A translucent background with rounded corners; a capsule when the radius reaches half the
/// thickness.
struct GlassNode {
    double cornerRadius = 0;

    bool operator==(const GlassNode&) const = default;
};

/// An image, drawn into the node's frame.
struct ImageNode {
    ImageHandle image;
    /// The side of its frame where nothing has grown or shrunk, and where it is drawn sharp.
    double restingSide = 0;
    /// The side that it can grow to, as far as is known beforehand.
    double largestSide = 0;

    bool operator==(const ImageNode&) const = default;
};

/// A filled circle in the system's secondary label colour.
struct DotNode {
    bool operator==(const DotNode&) const = default;
};

/// A line in the system's separator colour.
struct SeparatorNode {
    double cornerRadius = 0;

    bool operator==(const SeparatorNode&) const = default;
};

/// One line of text in a glass capsule, centred in the node's frame and no wider than it; what does
/// not fit ends in an ellipsis.
struct LabelNode {
    std::string text;
    /// System font, medium weight; points.
    double fontSize = 0;
    /// Between the text and the capsule's edge; points.
    Size padding;

    bool operator==(const LabelNode&) const = default;
};

/// A capsule in the primary colour, which a collapsed dock leaves at the screen's edge.
struct HandleNode {
    bool operator==(const HandleNode&) const = default;
};

/// Tells a node from the others of its scene; the same node carries it from scene to scene.
struct NodeID {
    enum class Part { strip, separator, icon, dot, label, handle };

    Part part = Part::strip;
    /// The tile, or the number of the separator; 0 where there is but one such node.
    std::uint32_t owner = 0;

    auto operator<=>(const NodeID&) const = default;
};

/// How a node's changes reach the screen. Without a curve a change shows at once; a movement under
/// way then goes on towards the new target.
struct Motion {
    std::optional<Curve> frame = {};
    std::optional<Curve> slide = {};
    std::optional<Curve> bounce = {};
    std::optional<Curve> scale = {};
    std::optional<Curve> opacity = {};
    /// Fades a node in that was not there before, and out when it is gone, on its passage.
    std::optional<Curve> presence = {};

    bool operator==(const Motion&) const = default;
};

struct SceneNode {
    NodeID id;
    /// At scale 1 and without the offset.
    Rect frame;
    std::variant<GlassNode, ImageNode, DotNode, SeparatorNode, LabelNode, HandleNode> content;
    /// About the point `anchor`, or the frame's centre.
    double scale = 1;
    std::optional<Point> anchor = {};
    /// Aside, along the dock's axis, and away from the display's edge.
    Point slide = {};
    Point bounce = {};
    /// Beside its place while it comes or goes; at its place in every scene that a view makes.
    Point passing = {};
    double opacity = 1;
    Motion motion = {};

    /// From the frame to where the node is drawn.
    [[nodiscard]] Point offset() const noexcept {
        return {slide.x + bounce.x + passing.x, slide.y + bounce.y + passing.y};
    }

    bool operator==(const SceneNode&) const = default;
};

struct Scene {
    std::vector<SceneNode> nodes;

    /// The part of the view, and of the overhang of its window, that takes the pointer; clicks
    /// beside it reach the window below. Absent: the window's whole frame.
    std::optional<Rect> inputRegion;

    /// Parts of the view, none on top of another, in each of which the pointer can move, with no
    /// button held, without anything looking different: a window need not tell of that. Elsewhere
    /// every movement counts.
    std::vector<Rect> quietRegions = {};

    /// How far beside their place nodes begin that were not there before, and those end that are
    /// gone.
    Point passage = {};

    /// Where the view's corner lies, from a point that stays where it is from scene to scene: what
    /// moves with a curve sets out from where it was on the display.
    Point viewPlace = {};

    bool operator==(const Scene&) const = default;
};

}
