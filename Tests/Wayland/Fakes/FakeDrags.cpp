#include "Wayland/Fakes/FakeDrags.hpp"

#include <unistd.h>
#include <wayland-client.h>
#include <wayland-server-core.h>

#include <csignal>
#include <string_view>
#include <utility>

namespace vireline::wayland {
namespace {

/// The events by their place in the protocol.
enum DragEvent : std::uint32_t {
    deviceOffer = 0,
    deviceEnter = 1,
    deviceLeave = 2,
    deviceMotion = 3,
    deviceDrop = 4,
    deviceSelection = 5,
    offerFormat = 0,
    offerSourceActions = 1,
    offerAction = 2,
};

}

FakeDrags::FakeDrags(FakeCompositor& compositor, int version) : compositor_(compositor) {
    // Clients may close their end of a pipe before it is written to.
    std::signal(SIGPIPE, SIG_IGN);
    log_.onRequest = [this](const RequestLog::Request& request) { handle(request); };
    compositor.offer(wl_data_device_manager_interface, version,
                     [this](wl_resource* manager) { log_.watch(manager, ""); });
}

FakeDrags::~FakeDrags() {
    for (const Pipe& pipe : pipes_)
        close(pipe.end);
}

void FakeDrags::handle(const RequestLog::Request& request) {
    const std::string_view kind = wl_resource_get_class(request.object);
    if (request.name == "get_data_device")
        device_ = request.created;
    if (kind == "wl_data_offer")
        note(request);
    if (request.name == "receive") {
        pipes_.push_back({request.arguments[0].s, request.arguments[1].h});
        if (!delaysAnswers)
            answerPipes();
    }
}

void FakeDrags::note(const RequestLog::Request& request) {
    std::string text{request.name};
    const wl_argument* const arguments = request.arguments;
    if (text == "accept")
        text = arguments[1].s == nullptr ? "refuse" : text + ' ' + arguments[1].s;
    else if (text == "receive")
        text += std::string{' '} + arguments[0].s;
    else if (text == "set_actions")
        text += ' ' + std::to_string(arguments[0].u) + ' ' + std::to_string(arguments[1].u);
    requests_.push_back(text);
}

void FakeDrags::answerPipes() {
    for (const Pipe& pipe : std::exchange(pipes_, {})) {
        const std::string& content = contents[pipe.format];
        // Short enough for a pipe.
        (void)!write(pipe.end, content.data(), content.size());
        close(pipe.end);
    }
}

void FakeDrags::announce(const std::vector<std::string>& formats, std::uint32_t actions) {
    offer_ = wl_resource_create(wl_resource_get_client(device_), &wl_data_offer_interface,
                                wl_resource_get_version(device_), 0);
    log_.watch(offer_, "");
    wl_resource_post_event(device_, deviceOffer, offer_);
    for (const std::string& format : formats)
        wl_resource_post_event(offer_, offerFormat, format.c_str());
    wl_resource_post_event(offer_, offerSourceActions, actions);
}

void FakeDrags::enter(wl_surface* surface, double x, double y) {
    wl_resource* const entered = wl_client_get_object(
        wl_resource_get_client(device_), wl_proxy_get_id(reinterpret_cast<wl_proxy*>(surface)));
    wl_resource_post_event(device_, deviceEnter, ++serial_, entered, wl_fixed_from_double(x),
                           wl_fixed_from_double(y), offer_);
}

void FakeDrags::motion(double x, double y) {
    constexpr std::uint32_t anyTime = 0;
    wl_resource_post_event(device_, deviceMotion, anyTime, wl_fixed_from_double(x),
                           wl_fixed_from_double(y));
}

void FakeDrags::leave() {
    wl_resource_post_event(device_, deviceLeave);
}

void FakeDrags::drop() {
    wl_resource_post_event(device_, deviceDrop);
}

void FakeDrags::decide(std::uint32_t action) {
    wl_resource_post_event(offer_, offerAction, action);
}

void FakeDrags::offerClipboard() {
    wl_resource_post_event(device_, deviceSelection, offer_);
}

RequestLog::Requests FakeDrags::requests() {
    RequestLog::Requests requests;
    compositor_.run([&] { requests = std::exchange(requests_, {}); });
    return requests;
}

}
