#include "Wayland/Fakes/FakePlasmaWindows.hpp"

#include <plasma-window-management-client-protocol.h>
#include <wayland-server-core.h>

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
    log_.onRequest = [this](const RequestLog::Request& request) {
        if (request.name == "get_window_by_uuid")
            describe(std::stoul(request.arguments[1].s), request.created);
    };
    compositor.offer(org_kde_plasma_window_management_interface, version,
                     [this](wl_resource* manager) { bound(manager); });
}

template <class... Values>
void FakePlasmaWindows::send(std::size_t window, std::uint32_t event, Values... values) {
    compositor_.run([&] { wl_resource_post_event(windows_[window].handle, event, values...); });
}

std::size_t FakePlasmaWindows::add(const std::string& appID, std::uint32_t flags, bool isComplete) {
    compositor_.run([&] {
        windows_.push_back({appID, flags, isComplete});
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

void FakePlasmaWindows::closeOnceDescribed(std::size_t window) {
    compositor_.run([&] { windows_[window].closesOnceDescribed = true; });
}

void FakePlasmaWindows::bound(wl_resource* manager) {
    manager_ = manager;
    log_.watch(manager, "");
    for (std::size_t i = 0; i < windows_.size(); ++i)
        announce(i);
    if (!stacking_.empty())
        wl_resource_post_event(manager_, stackingEvent, stacking_.c_str());
}

void FakePlasmaWindows::announce(std::size_t window) {
    wl_resource_post_event(manager_, windowEvent, static_cast<std::uint32_t>(window),
                           std::to_string(window).c_str());
}

void FakePlasmaWindows::describe(std::size_t index, wl_resource* handle) {
    Window& window = windows_[index];
    window.handle = handle;
    log_.watch(handle, std::to_string(index));
    constexpr std::uint32_t process = 1000;
    wl_resource_post_event(handle, plasmaTitle, "Title");
    if (!window.appID.empty())
        wl_resource_post_event(handle, plasmaAppID, window.appID.c_str());
    wl_resource_post_event(handle, plasmaState, window.flags);
    wl_resource_post_event(handle, plasmaProcess, process + static_cast<std::uint32_t>(index));
    if (window.isComplete)
        wl_resource_post_event(handle, plasmaDescribed);
    if (window.closesOnceDescribed)
        wl_resource_post_event(handle, plasmaUnmapped);
}

}
