/// Animates a dock from one scene to the next. An interrupted animation continues from the current
/// values; only changes without a curve are instant.
#pragma once

#include "Presentation/Scene.hpp"

#include <array>
#include <optional>
#include <vector>

namespace vireline {

class Animator {
public:
    /// Sets a new target scene at the time `now`, in seconds. The first scene shows without
    /// animation, except for repeating bounces. With `reducesMotion`, every scene shows without any
    /// animation.
    void setTarget(const Scene& scene, double now, bool reducesMotion = false);

    /// The scene to show at the time `now`: the target's nodes with their interpolated values, and
    /// nodes that are still fading out. Valid until the next call.
    [[nodiscard]] const Scene& frame(double now);

    /// Whether a later frame would differ.
    [[nodiscard]] bool isMoving(double now) const noexcept;

    /// Whether later frames would differ in opacity at most.
    [[nodiscard]] bool onlyFades(double now) const noexcept;

private:
    /// x, y, width and height of the frame; x and y of slide, bounce and presence offset; scale;
    /// opacity.
    static constexpr std::size_t propertyCount = 12;
    static constexpr std::size_t sizeIndex = 2;
    static constexpr std::size_t bounceIndex = 6;
    static constexpr std::size_t presenceIndex = 8;
    static constexpr std::size_t opacityIndex = propertyCount - 1;
    using Values = std::array<double, propertyCount>;
    using Curves = std::array<std::optional<Curve>, propertyCount>;

    /// The animation of one property: its distance from the target decreases from `residual` to 0.
    struct Track {
        double residual = 0;
        double start = 0;
        std::optional<Curve> curve;

        [[nodiscard]] double remaining(double now) const noexcept;
        [[nodiscard]] bool isMoving(double now) const noexcept;
    };

    struct Actor {
        SceneNode target;
        std::array<Track, propertyCount> tracks;
        bool isLeaving = false;
        /// Its node is in the next scene too and has been moved to `next_`.
        bool isInNextScene = false;
    };

    [[nodiscard]] static Values values(const SceneNode& node) noexcept;
    static void assign(SceneNode& node, const Values& values) noexcept;
    [[nodiscard]] static Curves curves(const Motion& motion) noexcept;

    [[nodiscard]] static bool isMoving(const Actor& actor, double now) noexcept;
    static void keepProportion(Track& place, Track& size, double from, double to) noexcept;
    static void bob(Actor& actor, double now) noexcept;
    static void retarget(Actor& actor, const SceneNode& target, double now, Point shift);
    [[nodiscard]] static Actor entering(const SceneNode& target, double now, Point presenceOffset);
    static bool leave(Actor& actor, double now, Point presenceOffset, Point shift);
    [[nodiscard]] Actor* findActor(const NodeID& id, std::size_t& hint);
    void keepLeaving(double now, Point presenceOffset, Point shift);

    /// In painting order.
    std::vector<Actor> actors_;
    /// The actors of the next scene, while it is being built. A member, to save an allocation each
    /// time.
    std::vector<Actor> next_;
    std::optional<Rect> inputRegion_;
    Point viewPlace_;
    bool isFirst_ = true;
    Scene frame_;
};

}
