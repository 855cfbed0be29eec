#include "Displays/DisplayCoordinator.hpp"

#include "ClientWindows/GuardMath.hpp"
#include "Foundation/DevLog.hpp"
#include "Platform/Desktop/Screens.hpp"
#include "Platform/RunLoop.hpp"

#include <algorithm>
#include <ranges>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace vireline {
namespace {

constexpr double screenChangeDebounce = 0.5;

template <class... Pieces>
void log(const Pieces&... pieces) {
    std::ostringstream line;
    (line << ... << pieces);
    DevLog::write(line.view());
}

/// "[1, 2]"
template <std::ranges::input_range Range, class Projection>
std::string listed(const Range& range, Projection id) {
    std::ostringstream text;
    text << '[';
    const char* comma = "";
    for (const auto& element : range) {
        text << comma << std::invoke(id, element);
        comma = ", ";
    }
    text << ']';
    return text.str();
}

}

DisplayCoordinator::DisplayCoordinator(const DockViewContext& context, Screens& screens,
                                       PanelWindows& windows)
    : context_(context), screens_(screens), windows_(windows) {}

void DisplayCoordinator::start() {
    reconcile();
    screenParameters_ =
        screens_.observeParameters(lifetime_.guard([this] { screenParametersChanged(); }));
}

void DisplayCoordinator::screenParametersChanged() {
    ++eventCount_;
    log("screen-params #", eventCount_);
    scheduleReconcile();
}

void DisplayCoordinator::scheduleReconcile() {
    debounce_ =
        context_.runLoop.after(screenChangeDebounce, lifetime_.guard([this] { reconcile(); }));
}

/// Not reentrant: a window may report an event, such as a drop that changes the list, from within a
/// call that the loop below makes. The loop then runs once more.
void DisplayCoordinator::reconcile() {
    isAnotherRoundDue_ = true;
    if (std::exchange(isReconciling_, true))
        return;
    while (std::exchange(isAnotherRoundDue_, false))
        reconcileOnce();
    isReconciling_ = false;
}

void DisplayCoordinator::reconcileOnce() {
    const auto screens = ScreenSnapshot::current(screens_);
    const DockConfig config = dockConfig();
    closePanelsElsewhere(config.position);
    const auto desired = desiredPanels(screens, config.position);

    std::map<std::uint32_t, Rect> existing;
    for (const auto& [display, panel] : panels_)
        existing[display] = panel->spec().frame;
    const PanelPlan plan = PanelPlanner::plan(desired, existing);
    log("reconcile screens=", listed(screens, &ScreenSnapshot::id),
        " desired=", listed(desired, &PanelSpec::displayID), " create=", plan.create.size(),
        " destroy=", plan.destroy.size(), " reframe=", plan.reframe.size());
    carryOut(plan, desired, config.autoHide);
    announceGuardZones(screens);
}

/// A panel cannot change its edge, so a change of the position needs new panels.
void DisplayCoordinator::closePanelsElsewhere(DockPosition position) {
    for (auto panel = panels_.begin(); panel != panels_.end();) {
        if (panel->second->spec().position == position) {
            ++panel;
            continue;
        }
        const std::uint32_t display = panel->first;
        panel = retire(panel);
        log("rebuilt panel #", display, " for position change");
    }
}

std::vector<PanelSpec> DisplayCoordinator::desiredPanels(std::span<const ScreenSnapshot> screens,
                                                         DockPosition position) const {
    PanelPlanner::Request request;
    request.counts = DockOrdering::Counts::of(context_.model.items.get());
    request.maxIconSize = context_.model.configuredIconSize.get();
    request.position = position;
    request.magnification = context_.model.magnification.get();
    return PanelPlanner::desiredPanels(screens, request);
}

void DisplayCoordinator::carryOut(const PanelPlan& plan, std::span<const PanelSpec> desired,
                                  bool autoHide) {
    for (const std::uint32_t display : plan.destroy) {
        retire(panels_.find(display));
        log("destroyed panel #", display);
    }
    for (const PanelSpec& spec : plan.reframe) {
        panels_.at(spec.displayID)->update(spec, autoHide);
        log("reframed panel #", spec.displayID, " -> ", spec.frame);
    }
    for (const PanelSpec& spec : plan.create)
        create(spec, autoHide);
    const auto isHandled = [&](const PanelSpec& spec) {
        return std::ranges::count(plan.reframe, spec) + std::ranges::count(plan.create, spec) > 0;
    };
    for (const PanelSpec& spec : desired) {
        const auto panel = panels_.find(spec.displayID);
        if (panel != panels_.end() && !isHandled(spec))
            panel->second->update(spec, autoHide);
    }
}

void DisplayCoordinator::create(const PanelSpec& spec, bool autoHide) {
    auto panel = std::make_unique<DockPanel>(spec, autoHide, context_, windows_);
    panel->orderFrontRegardless();
    panels_[spec.displayID] = std::move(panel);
    log("created panel #", spec.displayID, " at ", spec.frame,
        " autoHide=", autoHide ? "true" : "false");
}

DisplayCoordinator::Panels::iterator DisplayCoordinator::retire(Panels::iterator panel) {
    panel->second->retire();
    retired_.push_back(std::move(panel->second));
    retirement_ =
        context_.runLoop.after(0, lifetime_.guard([this] { std::exchange(retired_, {}); }));
    return panels_.erase(panel);
}

void DisplayCoordinator::announceGuardZones(std::span<const ScreenSnapshot> screens) const {
    if (onDisplayFramesChanged)
        onDisplayFramesChanged(GuardMath::displayFrames(screens));
    if (!onGuardZonesChanged)
        return;
    std::set<std::uint32_t> guarded;
    for (const auto& [display, panel] : panels_)
        guarded.insert(display);
    onGuardZonesChanged(GuardMath::guardZones(screens, guarded));
}

}
