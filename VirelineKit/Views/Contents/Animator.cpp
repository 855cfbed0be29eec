#include "Views/Contents/Animator.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace vireline {
namespace {

Rect moved(const Rect& rect, Point by) {
    return {rect.x + by.x, rect.y + by.y, rect.width, rect.height};
}

}

double Animator::Track::remaining(double now) const noexcept {
    return curve ? residual * (1 - progress(*curve, now - start)) : 0;
}

bool Animator::Track::isMoving(double now) const noexcept {
    return curve && residual != 0 && vireline::isMoving(*curve, now - start);
}

Animator::Values Animator::values(const SceneNode& node) noexcept {
    return {node.frame.x,          node.frame.y,          node.frame.width, node.frame.height,
            node.slide.x,          node.slide.y,          node.bounce.x,    node.bounce.y,
            node.presenceOffset.x, node.presenceOffset.y, node.scale,       node.opacity};
}

void Animator::assign(SceneNode& node, const Values& v) noexcept {
    node.frame = {v[0], v[1], v[2], v[3]};
    node.slide = {v[4], v[5]};
    node.bounce = {v[6], v[7]};
    node.presenceOffset = {v[8], v[9]};
    node.scale = v[10];
    node.opacity = v[11];
}

Animator::Curves Animator::curves(const Motion& motion) noexcept {
    return {motion.frame,    motion.frame,    motion.frame,  motion.frame,
            motion.slide,    motion.slide,    motion.bounce, motion.bounce,
            motion.presence, motion.presence, motion.scale,  motion.opacity};
}

bool Animator::isMoving(const Actor& actor, double now) noexcept {
    return std::ranges::any_of(actor.tracks,
                               [=](const Track& track) { return track.isMoving(now); });
}

/// For a size that changes without a curve while it is still animated: scales the residual with the
/// size, since otherwise the shown size could become negative. The position's residual is scaled
/// likewise, as far as it is due to growth about a point of the node.
void Animator::keepProportion(Track& place, Track& size, double from, double to) noexcept {
    if (size.residual == 0)
        return;
    const double ratio = from > 0 ? to / from : 0;
    const double fixed = std::clamp(place.residual / size.residual, -1.0, 0.0);
    const double change = (ratio - 1) * size.residual;
    place.residual += fixed * change;
    size.residual += change;
}

/// Starts a repeating bounce from the position at rest, for new nodes too.
void Animator::bob(Actor& actor, double now) noexcept {
    const auto& curve = actor.target.motion.bounce;
    if (!curve || !curve->repeats)
        return;
    const Values target = values(actor.target);
    for (const std::size_t i : {bounceIndex, bounceIndex + 1}) {
        if (Track& track = actor.tracks[i]; !track.isMoving(now))
            track = {-target[i], now, curve};
    }
}

/// `shift` is the vector from the view's new position to its old one.
void Animator::retarget(Actor& actor, const SceneNode& target, double now, Point shift) {
    actor.target.frame = moved(actor.target.frame, shift);
    const Values from = values(actor.target);
    const Values to = values(target);
    Curves curve = curves(target.motion);
    if (actor.isLeaving && target.motion.presence)
        curve[opacityIndex] = target.motion.presence;
    for (std::size_t i = 0; i < propertyCount; ++i) {
        Track& track = actor.tracks[i];
        if (from[i] == to[i])
            continue;
        if (!curve[i]) {
            if (i == sizeIndex || i == sizeIndex + 1)
                keepProportion(actor.tracks[i - sizeIndex], track, from[i], to[i]);
            continue;
        }
        const double shown = from[i] + track.remaining(now);
        track = {shown - to[i], now, curve[i]};
    }
    actor.isLeaving = false;
    actor.target = target;
    bob(actor, now);
}

Animator::Actor Animator::entering(const SceneNode& target, double now, Point presenceOffset) {
    Actor actor{.target = target, .tracks = {}};
    if (const auto& curve = target.motion.presence) {
        actor.tracks[opacityIndex] = {-target.opacity, now, curve};
        actor.tracks[presenceIndex] = {presenceOffset.x, now, curve};
        actor.tracks[presenceIndex + 1] = {presenceOffset.y, now, curve};
    }
    bob(actor, now);
    return actor;
}

/// Returns whether the node is still fading out.
bool Animator::leave(Actor& actor, double now, Point presenceOffset, Point shift) {
    if (!actor.target.motion.presence)
        return false;
    if (!actor.isLeaving) {
        SceneNode gone = actor.target;
        gone.frame = moved(gone.frame, shift);
        gone.presenceOffset = presenceOffset;
        gone.opacity = 0;
        gone.motion.opacity = gone.motion.presence;
        retarget(actor, gone, now, shift);
        actor.isLeaving = true;
    } else {
        actor.target.frame = moved(actor.target.frame, shift);
    }
    return actor.tracks[opacityIndex].isMoving(now);
}

/// Finds the actor of a node. Nodes mostly keep their order, so the search starts after the last
/// actor found.
Animator::Actor* Animator::findActor(const NodeID& id, std::size_t& hint) {
    for (std::size_t i = 0; i < actors_.size(); ++i) {
        Actor& actor = actors_[(hint + i) % actors_.size()];
        if (actor.isInNextScene || actor.target.id != id)
            continue;
        hint = (hint + i + 1) % actors_.size();
        return &actor;
    }
    return nullptr;
}

void Animator::keepLeaving(double now, Point presenceOffset, Point shift) {
    for (std::size_t i = 0; i < actors_.size(); ++i) {
        if (actors_[i].isInNextScene || !leave(actors_[i], now, presenceOffset, shift))
            continue;
        const auto place = static_cast<std::ptrdiff_t>(std::min(i, next_.size()));
        next_.insert(next_.begin() + place, std::move(actors_[i]));
    }
}

void Animator::setTarget(const Scene& scene, double now, bool reducesMotion) {
    const bool atOnce = std::exchange(isFirst_, false) || reducesMotion;
    if (atOnce)
        actors_.clear();
    const Point shift{viewPlace_.x - scene.viewPlace.x, viewPlace_.y - scene.viewPlace.y};
    std::size_t hint = 0;
    for (const SceneNode& node : scene.nodes) {
        if (atOnce) {
            next_.push_back({.target = node, .tracks = {}});
            if (!reducesMotion)
                bob(next_.back(), now);
        } else if (Actor* const known = findActor(node.id, hint)) {
            retarget(*known, node, now, shift);
            next_.push_back(std::move(*known));
            known->isInNextScene = true;
        } else {
            next_.push_back(entering(node, now, scene.presenceOffset));
        }
    }
    keepLeaving(now, scene.presenceOffset, shift);
    std::swap(actors_, next_);
    next_.clear();
    inputRegion_ = scene.inputRegion;
    viewPlace_ = scene.viewPlace;
    frame_.followsPointer = scene.followsPointer;
}

const Scene& Animator::frame(double now) {
    std::erase_if(actors_, [=](const Actor& actor) {
        return actor.isLeaving && !actor.tracks[opacityIndex].isMoving(now);
    });
    frame_.nodes.clear();
    for (const Actor& actor : actors_) {
        SceneNode& node = frame_.nodes.emplace_back(actor.target);
        Values shown = values(actor.target);
        for (std::size_t i = 0; i < propertyCount; ++i)
            shown[i] += actor.tracks[i].remaining(now);
        shown[sizeIndex] = std::max(0.0, shown[sizeIndex]);
        shown[sizeIndex + 1] = std::max(0.0, shown[sizeIndex + 1]);
        assign(node, shown);
    }
    frame_.inputRegion = inputRegion_;
    return frame_;
}

bool Animator::isMoving(double now) const noexcept {
    return std::ranges::any_of(actors_, [=](const Actor& actor) { return isMoving(actor, now); });
}

bool Animator::onlyFades(double now) const noexcept {
    return std::ranges::none_of(actors_, [=](const Actor& actor) {
        // Opacity is the last property.
        return std::ranges::any_of(std::span{actor.tracks}.first<opacityIndex>(),
                                   [=](const Track& track) { return track.isMoving(now); });
    });
}

}
