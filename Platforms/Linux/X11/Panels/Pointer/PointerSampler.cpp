#include "Panels/Pointer/PointerSampler.hpp"

#include "Connection/DrawingConnection.hpp"
#include "Connection/X11Connection.hpp"
#include "Panels/Context/PanelContext.hpp"

#include <xcb/xinput.h>

#include <cstdint>
#include <cstring>
#include <span>
#include <utility>

namespace vireline::x11 {
namespace {

/// A tenth of a second on usual displays, since hands pause while moving; twice that on a dock that
/// does not magnify, which is sampled half as often.
constexpr int samplesUntilStill = 6;
constexpr std::uint32_t movements = XCB_INPUT_XI_EVENT_MASK_MOTION;
constexpr std::uint32_t coreMovements =
    XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_BUTTON_MOTION;
/// Size of a request's header, before the event masks.
constexpr std::size_t headUnits = sizeof(xcb_input_event_mask_t) / sizeof(std::uint32_t);

/// This client's event selections on the window, per kind of device.
std::vector<PointerSampler::Selection> selections(xcb_connection_t* connection,
                                                  xcb_window_t window) {
    const Owned<xcb_input_xi_get_selected_events_reply_t> reply{
        xcb_input_xi_get_selected_events_reply(
            connection, xcb_input_xi_get_selected_events(connection, window), nullptr)};
    if (!reply)
        return {};
    std::vector<PointerSampler::Selection> found;
    for (auto mask = xcb_input_xi_get_selected_events_masks_iterator(reply.get()); mask.rem > 0;
         xcb_input_event_mask_next(&mask)) {
        const std::span masks{xcb_input_event_mask_mask(mask.data), mask.data->mask_len};
        if (!masks.empty() && (masks.front() & movements) != 0)
            found.push_back({mask.data->deviceid, {masks.begin(), masks.end()}});
    }
    return found;
}

}

PointerSampler::PointerSampler(const PanelContext& context, xcb_window_t window)
    : context_(context)
    , window_(window)
    , selections_(selections(context.connection.get(), window)) {}

void PointerSampler::start() {
    if (std::exchange(isSampling_, true))
        return;
    last_.reset();
    stillSamples_ = 0;
    select(false);
}

void PointerSampler::stop() {
    if (std::exchange(isSampling_, false))
        select(true);
}

std::optional<QPoint> PointerSampler::sample(bool isPressed) {
    // Before the query, so that no movement between the last sample and the first event is lost.
    if (stillSamples_ == samplesUntilStill) {
        stop();
        context_.connection.finish();
    }
    xcb_connection_t* const connection = context_.drawing.get();
    const Owned<xcb_query_pointer_reply_t> reply{
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, window_), nullptr)};
    context_.drawing.discardEvents();
    if (!reply || reply->same_screen == 0)
        return std::nullopt;
    constexpr unsigned buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    const QPoint place{reply->win_x, reply->win_y};
    // A button pressed in the meantime withholds events until its release.
    const bool reportsEvents = (reply->mask & buttons) == 0;
    const bool isStill = reportsEvents && last_ == place;
    stillSamples_ = isStill ? stillSamples_ + 1 : 0;
    if (isPressed && (reply->mask & XCB_BUTTON_MASK_1) == 0)
        return std::nullopt;
    return std::exchange(last_, place) == place ? std::nullopt : std::optional{place};
}

/// If only XInput motion were deselected, the server would send core motion events instead.
void PointerSampler::select(bool motion) const {
    if (motion) {
        context_.connection.selectInput(window_, coreMovements);
    } else {
        context_.connection.deselectInput(window_, coreMovements);
    }
    for (const Selection& selection : selections_) {
        std::vector<std::uint32_t> request(headUnits);
        const xcb_input_event_mask_t head{selection.device,
                                          static_cast<std::uint16_t>(selection.events.size())};
        std::memcpy(request.data(), &head, sizeof head);
        request.insert(request.end(), selection.events.begin(), selection.events.end());
        if (!motion)
            request[headUnits] &= ~movements;
        xcb_input_xi_select_events(context_.connection.get(), window_, 1,
                                   reinterpret_cast<const xcb_input_event_mask_t*>(request.data()));
    }
    context_.connection.flush();
}

}
