#include "Panels/Keeping/DockKeeper.hpp"

#include "Connection/X11Connection.hpp"
#include "Displays/RandrScreens.hpp"
#include "Panels/Context/DesktopWatch.hpp"
#include "Panels/Context/PanelContext.hpp"
#include "Panels/Keeping/DockCover.hpp"
#include "Panels/Keeping/DockHints.hpp"

#include <algorithm>
#include <chrono>

namespace vireline::x11 {
namespace {

constexpr std::chrono::milliseconds lookInterval{500};

}

DockKeeper::DockKeeper(const PanelContext& context, xcb_window_t window, std::uint32_t displayID,
                       Keeper keeper)
    : context_(context)
    , window_(window)
    , displayID_(displayID)
    , keeper_(keeper)
    , place_(context.connection, window, displayID) {
    if (keeper == Keeper::program) {
        constexpr std::uint32_t yes = 1;
        xcb_change_window_attributes(context.connection.get(), window, XCB_CW_OVERRIDE_REDIRECT,
                                     &yes);
    }
    place_.onChange = [this] { onPlaceChanged(); };
    place_.onGivenUp = [this] { displaced(); };
    timer_.setSingleShot(true);
    timer_.setInterval(lookInterval);
    timer_.callOnTimeout([this] { look(); });
}

void DockKeeper::shown() {
    facts_ = {};
    isShown_ = true;
    if (keeper_ == Keeper::program)
        return keepStacking(true);
    timer_.start();
}

void DockKeeper::hidden() {
    isShown_ = false;
    timer_.stop();
    keepStacking(false);
}

void DockKeeper::windowManagerChanged() {
    place_.startOver();
    DockHints::assertState(context_.connection, window_);
    onManaged();
    facts_ = {.isManagerNew = true};
    // A window manager announces itself before it manages windows, so wait before looking.
    timer_.start();
}

void DockKeeper::handle(const xcb_generic_event_t& event) {
    if (stacking_)
        stacking_->handle(event);
    if (mayBeManaged(event))
        onManaged();
    if (isShown_ && keeper_ == Keeper::windowManager && !timer_.isActive() && mayBeCovered(event)) {
        facts_ = {};
        timer_.start();
    }
    if (place_.handle(event))
        onPlaceChanged();
}

bool DockKeeper::mayBeManaged(const xcb_generic_event_t& event) const {
    switch (eventType(event)) {
    case XCB_MAP_NOTIFY:
        return as<xcb_map_notify_event_t>(event).window == window_;
    case XCB_REPARENT_NOTIFY:
        return as<xcb_reparent_notify_event_t>(event).window == window_;
    default:
        return false;
    }
}

bool DockKeeper::mayBeCovered(const xcb_generic_event_t& event) const {
    if (eventType(event) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto& change = as<xcb_property_notify_event_t>(event);
    return change.window == context_.connection.root() &&
           change.atom == context_.connection.atom("_NET_CLIENT_LIST_STACKING");
}

void DockKeeper::look() {
    readFacts();
    ++facts_.looks;
    facts_.looksUnmanaged = facts_.isMapped && !facts_.isManaged ? facts_.looksUnmanaged + 1 : 0;
    facts_.looksMistreated = facts_.isManaged && isMistreated() ? facts_.looksMistreated + 1 : 0;
    if (keeper_ == Keeper::windowManager)
        keepStacking(!facts_.hasManager);
    proceed();
}

/// A manager that ignores a window may still set a state on it. What counts is whether it lists the
/// window or has reparented it into a frame.
void DockKeeper::readFacts() {
    const X11Connection& connection = context_.connection;
    facts_.hasManager = connection.isManaged();
    const auto attributesCookie = xcb_get_window_attributes(connection.get(), window_);
    const auto treeCookie = xcb_query_tree(connection.get(), window_);
    const Owned<xcb_get_window_attributes_reply_t> attributes{
        xcb_get_window_attributes_reply(connection.get(), attributesCookie, nullptr)};
    const Owned<xcb_query_tree_reply_t> tree{
        xcb_query_tree_reply(connection.get(), treeCookie, nullptr)};
    facts_.isMapped = attributes && attributes->map_state != XCB_MAP_STATE_UNMAPPED;
    const auto listed = connection.windows(connection.root(), "_NET_CLIENT_LIST");
    facts_.isManaged = (tree && tree->parent != connection.root()) ||
                       std::ranges::find(listed, window_) != listed.end();
}

bool DockKeeper::isMistreated() const {
    const X11Connection& connection = context_.connection;
    const auto border = connection.items(window_, "_NET_FRAME_EXTENTS", XCB_ATOM_CARDINAL);
    if (std::ranges::any_of(border, [](auto side) { return side != 0; }))
        return true;
    const auto display = context_.screens.display(displayID_);
    const auto& frame = place_.actual();
    return display && frame && DockCover::isCovered(connection, window_, *frame, display->pixels);
}

/// While the display is changing, a displaced dock is not the window manager's fault.
void DockKeeper::displaced() {
    const auto display = context_.screens.display(displayID_);
    const PixelRect asked = place_.asked().value_or(PixelRect{});
    if (!display || display->pixels.overlap(asked) != asked.overlap(asked))
        return;
    facts_.isDisplaced = true;
    facts_.hasManager = context_.connection.isManaged();
    proceed();
}

void DockKeeper::proceed() {
    switch (DockKeeping::next(keeper_, facts_)) {
    case KeepingStep::rest:
        break;
    case KeepingStep::wait:
        timer_.start();
        break;
    case KeepingStep::showAgain:
        timer_.start();
        onLost();
        break;
    case KeepingStep::takeOver:
        context_.desktop.noteMisplacedDock();
        onKeeperChange(Keeper::program);
        break;
    case KeepingStep::handBack:
        onKeeperChange(Keeper::windowManager);
        break;
    }
}

void DockKeeper::keepStacking(bool keep) {
    if (!keep) {
        stacking_.reset();
    } else if (!stacking_) {
        const auto display = context_.screens.display(displayID_);
        stacking_.emplace(context_.connection, window_, display ? display->pixels : PixelRect{});
    }
}

}
