/// What a dock shows at one moment, as data: the nodes to paint, back to front, and regions that
/// concern input. Coordinates are the view's own: points, origin top-left, y downwards.
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

/// A translucent background with rounded corners; a capsule if the radius is at least half the
/// thickness.
struct GlassNode {
    double cornerRadius = 0;

    bool operator==(const GlassNode&) const = default;
};

/// An image, drawn into the node's frame.
struct ImageNode {
    ImageHandle image;
    /// The side of the frame without growth. At this size, the image is drawn sharp.
    double restingSide = 0;
    /// The largest side that the frame is expected to grow to.
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

/// One line of text in a glass capsule, centred in the node's frame. Text that does not fit is
/// truncated with an ellipsis.
struct LabelNode {
    std::string text;
    /// In points; the font is the system font in medium weight.
    double fontSize = 0;
    /// Between the text and the capsule's edge, in points.
    Size padding;

    bool operator==(const LabelNode&) const = default;
};

/// A capsule in the primary colour: the handle of a collapsed dock.
struct HandleNode {
    bool operator==(const HandleNode&) const = default;
};

/// A short text on a capsule in the system's colour for what is new.
struct BadgeNode {
    std::string text;

    bool operator==(const BadgeNode&) const = default;
};

/// A bar that is filled from the left.
struct ProgressNode {
    /// The filled part of the bar, from 0 to 1.
    double fraction = 0;

    bool operator==(const ProgressNode&) const = default;
};

/// A capsule in the system's colour for warnings: something wants the user's attention.
struct MarkNode {
    bool operator==(const MarkNode&) const = default;
};

/// Identifies a node within its scene, and across scenes.
struct NodeID {
    enum class Part {
        strip,
        separator,
        icon,
        dot,
        label,
        handle,
        badge,
        progress,
        mark,
        /// A mark on a collapsed dock's line.
        lineMark,
    };

    Part part = Part::strip;
    /// The serial of the tile, or the number of the separator; 0 for a part that exists once.
    std::uint32_t owner = 0;

    auto operator<=>(const NodeID&) const = default;
};

/// How changes of a node are animated. A change without a curve shows immediately; if the property
/// is being animated, that continues towards the new target.
struct Motion {
    std::optional<Curve> frame = {};
    std::optional<Curve> slide = {};
    std::optional<Curve> bounce = {};
    std::optional<Curve> scale = {};
    std::optional<Curve> opacity = {};
    /// Fades a node in when it appears and out when it disappears, moving it by
    /// `Scene::presenceOffset`.
    std::optional<Curve> presence = {};

    bool operator==(const Motion&) const = default;
};

struct SceneNode {
    NodeID id;
    /// Before the scale and the offset are applied.
    Rect frame;
    std::variant<GlassNode, ImageNode, DotNode, SeparatorNode, LabelNode, HandleNode, BadgeNode,
                 ProgressNode, MarkNode>
        content;
    /// Scaled about `anchor`, by default the frame's centre.
    double scale = 1;
    std::optional<Point> anchor = {};
    /// Offsets along the dock's axis and away from the display's edge.
    Point slide = {};
    Point bounce = {};
    /// The offset while the node appears or disappears. Set only by the animator; zero in scenes
    /// that a view makes.
    Point presenceOffset = {};
    double opacity = 1;
    Motion motion = {};

    /// The offset of the drawn node from its frame.
    [[nodiscard]] Point offset() const noexcept {
        return {slide.x + bounce.x + presenceOffset.x, slide.y + bounce.y + presenceOffset.y};
    }

    bool operator==(const SceneNode&) const = default;
};

struct Scene {
    std::vector<SceneNode> nodes;

    /// The part of the view and of the window's overhang that takes the pointer; clicks outside it
    /// reach the window below. nullopt means the window's whole frame.
    std::optional<Rect> inputRegion;

    /// The offset at which new nodes start to appear and removed nodes end up.
    Point presenceOffset = {};

    /// The position of the view's corner, relative to a point that is fixed across scenes. Lets
    /// animations start from the node's old position on the display when the view moves.
    Point viewPlace = {};

    /// Whether nodes move with every movement of the pointer along the dock. If not, a window may
    /// look at the pointer less often than once per frame.
    bool followsPointer = false;

    bool operator==(const Scene&) const = default;
};

}
