#include "FakePlasmaWindows.hpp"

#include <plasma-window-management-client-protocol.h>
#include <wayland-server-core.h>

#include <algorithm>
#include <string_view>

namespace vireline::wayland {
namespace {

/// The events by their place in the protocol.
enum PlasmaManagerEvent : std::uint32_t { stackingEvent = 3, windowEvent = 4 };
enum PlasmaWindowEvent : std::uint32_t {
    plasmaTitle = 0,
    plasmaAppID = 1,
    plasmaState = 2,
    plasmaUnmapped = 5,
    plasmaDescribed = 6,
    plasmaParent = 7,
    plasmaGeometry = 8,
    plasmaProcess = 10,
};

}

FakePlasmaWindows::FakePlasmaWindows(FakeCompositor& compositor, int version)
    : compositor_(compositor) {
    compositor.offer(org_kde_plasma_window_management_interface, version,
                     [this](wl_resource* manager) { bound(manager); });
}

template <class... Values>
void FakePlasmaWindows::send(std::size_t window, std::uint32_t event, Values... values) {
    compositor_.run([&] { wl_resource_post_event(windows_[window].handle, event, values...); });
}

std::size_t FakePlasmaWindows::add(const std::string& appID, std::uint32_t flags, bool isComplete) {
    compositor_.run([&] {
        windows_.push_back({appID, flags, isComplete, nullptr});
        if (manager_ != nullptr)
            announce(windows_.size() - 1);
    });
    return windows_.size() - 1;
}

void FakePlasmaWindows::setStacking(const std::string& uuids) {
    compositor_.run([&] { stacking_ = uuids; });
}

void FakePlasmaWindows::setFlags(std::size_t window, std::uint32_t flags) {
    send(window, plasmaState, flags);
}

void FakePlasmaWindows::setAppID(std::size_t window, const std::string& appID) {
    send(window, plasmaAppID, appID.c_str());
}

void FakePlasmaWindows::setTitle(std::size_t window, const std::string& title) {
    send(window, plasmaTitle, title.c_str());
}

void FakePlasmaWindows::setParent(std::size_t window, std::size_t parent) {
    send(window, plasmaParent, windows_[parent].handle);
}

void FakePlasmaWindows::setFrame(std::size_t window, int x, int y, int width, int height) {
    send(window, plasmaGeometry, x, y, width, height);
}

void FakePlasmaWindows::complete(std::size_t window) {
    send(window, plasmaDescribed);
}

void FakePlasmaWindows::close(std::size_t window) {
    send(window, plasmaUnmapped);
}

std::vector<std::string> FakePlasmaWindows::requests() {
    std::vector<std::string> requests;
    compositor_.run([&] { requests = requests_; });
    return requests;
}

void FakePlasmaWindows::bound(wl_resource* manager) {
    manager_ = manager;
    const auto handle = [](const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                           const wl_message* message, wl_argument* arguments) {
        auto& self = *static_cast<FakePlasmaWindows*>(
            wl_resource_get_user_data(static_cast<wl_resource*>(target)));
        if (std::string_view{message->name} == "get_window_by_uuid")
            self.describe(std::stoul(arguments[1].s), arguments[0].n);
        return 0;
    };
    wl_resource_set_dispatcher(manager, handle, nullptr, this, nullptr);
    for (std::size_t i = 0; i < windows_.size(); ++i)
        announce(i);
    if (!stacking_.empty())
        wl_resource_post_event(manager_, stackingEvent, stacking_.c_str());
}

void FakePlasmaWindows::announce(std::size_t window) {
    wl_resource_post_event(manager_, windowEvent, static_cast<std::uint32_t>(window),
                           std::to_string(window).c_str());
}

void FakePlasmaWindows::describe(std::size_t index, std::uint32_t object) {
    Window& window = windows_[index];
    window.handle =
        wl_resource_create(wl_resource_get_client(manager_), &org_kde_plasma_window_interface,
                           wl_resource_get_version(manager_), object);
    const auto note = [](const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                         const wl_message* message, wl_argument* arguments) {
        auto* const handle = static_cast<wl_resource*>(target);
        auto& self = *static_cast<FakePlasmaWindows*>(wl_resource_get_user_data(handle));
        const auto found = std::ranges::find(self.windows_, handle, &Window::handle);
        const std::string_view name{message->name};
        std::string request =
            std::to_string(found - self.windows_.begin()) + ' ' + std::string{name};
        if (name == "set_state")
            request += ' ' + std::to_string(arguments[0].u) + ' ' + std::to_string(arguments[1].u);
        self.requests_.push_back(request);
        if (name == "destroy")
            wl_resource_destroy(handle);
        return 0;
    };
    wl_resource_set_dispatcher(window.handle, note, nullptr, this, nullptr);
    constexpr std::uint32_t process = 1000;
    wl_resource_post_event(window.handle, plasmaTitle, "Title");
    wl_resource_post_event(window.handle, plasmaAppID, window.appID.c_str());
    wl_resource_post_event(window.handle, plasmaState, window.flags);
    wl_resource_post_event(window.handle, plasmaProcess,
                           process + static_cast<std::uint32_t>(index));
    if (window.isComplete)
        wl_resource_post_event(window.handle, plasmaDescribed);
}

}
