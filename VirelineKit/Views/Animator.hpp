/// Moves what a dock shows from the last scene to the next. An interrupted movement goes on from
/// where it is; nothing ever jumps but what has no curve.
#pragma once

#include "Presentation/Scene.hpp"

#include <array>
#include <optional>
#include <vector>

namespace vireline {

class Animator {
public:
    /// Takes over a new scene at the time `now`, in seconds. The first one shows at once, but for
    /// what goes back and forth; and so does every one while `reducesMotion` holds, in which
    /// nothing moves at all.
    void setTarget(const Scene& scene, double now, bool reducesMotion = false);

    /// What shows at the time `now`: the target's nodes with the values that they have then, and
    /// those that are still fading out. Valid until the next call.
    [[nodiscard]] const Scene& frame(double now);

    /// Whether a later frame would differ.
    [[nodiscard]] bool isMoving(double now) const noexcept;

private:
    /// x, y, width and height of the frame, both axes of slide, bounce and passing, scale, opacity.
    static constexpr std::size_t propertyCount = 12;
    static constexpr std::size_t sizeIndex = 2;
    static constexpr std::size_t bounceIndex = 6;
    static constexpr std::size_t passingIndex = 8;
    static constexpr std::size_t opacityIndex = propertyCount - 1;
    using Values = std::array<double, propertyCount>;
    using Curves = std::array<std::optional<Curve>, propertyCount>;

    /// One property on its way: what it still lacks fades from `residual` to nothing.
    struct Track {
        double residual = 0;
        double start = 0;
        std::optional<Curve> curve;

        [[nodiscard]] double lacking(double now) const noexcept;
        [[nodiscard]] bool isMoving(double now) const noexcept;
    };

    struct Actor {
        SceneNode target;
        std::array<Track, propertyCount> tracks;
        bool isLeaving = false;
        /// Its node is in the next scene too, and moved on there.
        bool isTaken = false;
    };

    [[nodiscard]] static Values values(const SceneNode& node) noexcept;
    static void assign(SceneNode& node, const Values& values) noexcept;
    [[nodiscard]] static Curves curves(const Motion& motion) noexcept;

    [[nodiscard]] static bool isMoving(const Actor& actor, double now) noexcept;
    static void keepProportion(Track& place, Track& size, double from, double to) noexcept;
    static void bob(Actor& actor, double now) noexcept;
    static void retarget(Actor& actor, const SceneNode& target, double now, Point shift);
    [[nodiscard]] static Actor entering(const SceneNode& target, double now, Point passage);
    static bool leave(Actor& actor, double now, Point passage, Point shift);
    [[nodiscard]] Actor* take(const NodeID& id, std::size_t& hint);
    void keepLeaving(double now, Point passage, Point shift);

    /// In the order of painting.
    std::vector<Actor> actors_;
    /// Where those of the next scene gather; kept to spare an allocation each time.
    std::vector<Actor> next_;
    std::optional<Rect> inputRegion_;
    Point viewPlace_;
    bool isFirst_ = true;
    Scene frame_;
};

}
