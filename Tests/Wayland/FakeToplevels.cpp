#include "FakeToplevels.hpp"

#include <wayland-server-core.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <cstring>
#include <string_view>

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

int ignore(const void* /*implementation*/, void* /*target*/, std::uint32_t /*opcode*/,
           const wl_message* /*message*/, wl_argument* /*arguments*/) {
    return 0;
}

}

FakeToplevels::FakeToplevels(FakeCompositor& compositor) : compositor_(compositor) {
    compositor.offer(zwlr_foreign_toplevel_manager_v1_interface, 3,
                     [this](wl_resource* manager) { bound(manager); });
}

std::size_t FakeToplevels::add(const std::string& appID, const std::string& title,
                               const std::vector<State>& states) {
    compositor_.run([&] {
        windows_.push_back({appID, title, states, nullptr});
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

void FakeToplevels::setParent(std::size_t window, std::size_t parent) {
    compositor_.run([&] {
        wl_resource_post_event(windows_[window].handle, parentEvent, windows_[parent].handle);
        wl_resource_post_event(windows_[window].handle, doneEvent);
    });
}

void FakeToplevels::close(std::size_t window) {
    compositor_.run([&] { wl_resource_post_event(windows_[window].handle, closedEvent); });
}

void FakeToplevels::finish() {
    compositor_.run([&] { wl_resource_post_event(manager_, finishedEvent); });
}

std::vector<std::string> FakeToplevels::requests() {
    std::vector<std::string> requests;
    compositor_.run([&] { requests = requests_; });
    return requests;
}

void FakeToplevels::bound(wl_resource* manager) {
    manager_ = manager;
    wl_resource_set_dispatcher(manager, ignore, nullptr, this, nullptr);
    for (std::size_t i = windows_.size(); i > 0; --i)
        announce(i - 1);
}

void FakeToplevels::announce(std::size_t index) {
    Window& window = windows_[index];
    window.handle = wl_resource_create(wl_resource_get_client(manager_),
                                       &zwlr_foreign_toplevel_handle_v1_interface,
                                       wl_resource_get_version(manager_), 0);
    const auto note = [](const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                         const wl_message* message, wl_argument* /*arguments*/) {
        auto* const handle = static_cast<wl_resource*>(target);
        auto& self = *static_cast<FakeToplevels*>(wl_resource_get_user_data(handle));
        const auto found = std::ranges::find(self.windows_, handle, &Window::handle);
        self.requests_.push_back(std::to_string(found - self.windows_.begin()) + ' ' +
                                 message->name);
        if (std::string_view{message->name} == "destroy")
            wl_resource_destroy(handle);
        return 0;
    };
    wl_resource_set_dispatcher(window.handle, note, nullptr, this, nullptr);
    wl_resource_post_event(manager_, toplevelEvent, window.handle);
    if (!window.title.empty())
        wl_resource_post_event(window.handle, titleEvent, window.title.c_str());
    if (!window.appID.empty())
        wl_resource_post_event(window.handle, appIDEvent, window.appID.c_str());
    sendStates(window);
    wl_resource_post_event(window.handle, doneEvent);
}

void FakeToplevels::sendStates(const Window& window) {
    wl_array states;
    wl_array_init(&states);
    for (const State state : window.states) {
        const auto word = static_cast<std::uint32_t>(state);
        std::memcpy(wl_array_add(&states, sizeof word), &word, sizeof word);
    }
    wl_resource_post_event(window.handle, stateEvent, &states);
    wl_array_release(&states);
}

}
