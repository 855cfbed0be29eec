#include "Wayland/Fakes/FakeToplevels.hpp"

#include <wayland-server-core.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <cstring>

namespace vireline::wayland {
namespace {

/// The events by their place in the protocol.
enum ManagerEvent : std::uint32_t { toplevelEvent = 0, finishedEvent = 1 };
enum HandleEvent : std::uint32_t {
    titleEvent = 0,
    appIDEvent = 1,
    stateEvent = 4,
    doneEvent = 5,
    closedEvent = 6,
    parentEvent = 7,
};

}

FakeToplevels::FakeToplevels(FakeCompositor& compositor) : compositor_(compositor) {
    compositor.offer(zwlr_foreign_toplevel_manager_v1_interface, 3,
                     [this](wl_resource* manager) { bound(manager); });
}

std::size_t FakeToplevels::add(const std::string& appID, const std::string& title,
                               const std::vector<State>& states) {
    compositor_.run([&] {
        windows_.push_back({appID, title, states});
        if (manager_ != nullptr)
            announce(windows_.size() - 1);
    });
    return windows_.size() - 1;
}

void FakeToplevels::setStates(std::size_t window, const std::vector<State>& states) {
    compositor_.run([&] {
        windows_[window].states = states;
        sendStates(windows_[window]);
        wl_resource_post_event(windows_[window].handle, doneEvent);
    });
}

void FakeToplevels::setAppID(std::size_t window, const std::string& appID) {
    compositor_.run([&] {
        wl_resource_post_event(windows_[window].handle, appIDEvent, appID.c_str());
        wl_resource_post_event(windows_[window].handle, doneEvent);
    });
}

void FakeToplevels::setTitle(std::size_t window, const std::string& title) {
    compositor_.run([&] {
        wl_resource_post_event(windows_[window].handle, titleEvent, title.c_str());
        wl_resource_post_event(windows_[window].handle, doneEvent);
    });
}

void FakeToplevels::setParent(std::size_t window, std::size_t parent) {
    compositor_.run([&] {
        wl_resource_post_event(windows_[window].handle, parentEvent, windows_[parent].handle);
        wl_resource_post_event(windows_[window].handle, doneEvent);
    });
}

void FakeToplevels::close(std::size_t window) {
    compositor_.run([&] { wl_resource_post_event(windows_[window].handle, closedEvent); });
}

void FakeToplevels::closeOnceDescribed(std::size_t window) {
    compositor_.run([&] { windows_[window].closesOnceDescribed = true; });
}

void FakeToplevels::finish() {
    compositor_.run([&] { wl_resource_post_event(manager_, finishedEvent); });
}

void FakeToplevels::bound(wl_resource* manager) {
    manager_ = manager;
    log_.watch(manager, "");
    for (std::size_t i = windows_.size(); i > 0; --i)
        announce(i - 1);
}

void FakeToplevels::announce(std::size_t index) {
    Window& window = windows_[index];
    window.handle = wl_resource_create(wl_resource_get_client(manager_),
                                       &zwlr_foreign_toplevel_handle_v1_interface,
                                       wl_resource_get_version(manager_), 0);
    log_.watch(window.handle, std::to_string(index));
    wl_resource_post_event(manager_, toplevelEvent, window.handle);
    if (!window.title.empty())
        wl_resource_post_event(window.handle, titleEvent, window.title.c_str());
    if (!window.appID.empty())
        wl_resource_post_event(window.handle, appIDEvent, window.appID.c_str());
    sendStates(window);
    wl_resource_post_event(window.handle, doneEvent);
    if (window.closesOnceDescribed)
        wl_resource_post_event(window.handle, closedEvent);
}

void FakeToplevels::sendStates(const Window& window) {
    wl_array states;
    wl_array_init(&states);
    for (const State state : window.states) {
        const auto number = static_cast<std::uint32_t>(state);
        std::memcpy(wl_array_add(&states, sizeof number), &number, sizeof number);
    }
    wl_resource_post_event(window.handle, stateEvent, &states);
    wl_array_release(&states);
}

}
