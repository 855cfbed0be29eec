#include "Wayland/Fakes/FakeShell.hpp"

#include "Connection/LayerShell.hpp"

#include <wayland-server-core.h>
#include <xdg-output-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace vireline::wayland {
namespace {

/// The events by their place in the protocols.
enum ShellEvent : std::uint32_t {
    callbackDone = 0,
    bufferRelease = 0,
    surfaceEnter = 0,
    surfaceLeave = 1,
    layerConfigure = 0,
    layerClosed = 1,
    xdgSurfaceConfigure = 0,
    popupConfigure = 0,
    popupDone = 1,
    outputGeometry = 0,
    outputMode = 1,
    outputDone = 2,
    outputScale = 3,
    xdgOutputPosition = 0,
    xdgOutputSize = 1,
    xdgOutputName = 3,
};

bool is(wl_resource* object, std::string_view interface) {
    return object != nullptr && wl_resource_get_class(object) == interface;
}

/// The object of a request's argument.
wl_resource* objectOf(const wl_argument& argument) {
    return reinterpret_cast<wl_resource*>(argument.o);
}

}

FakeShell::FakeShell(FakeCompositor& compositor) : compositor_(compositor) {
    log_.onRequest = [this](const RequestLog::Request& request) { handle(request); };
    const auto watch = [this](wl_resource* object) { log_.watch(object); };
    compositor.offer(wl_compositor_interface, 4, watch);
    compositor.offerMemory();
    compositor.offer(xdg_wm_base_interface, 3, watch);
    compositor.offer(zwlr_layer_shell_v1_interface, 4, watch);
    compositor.offer(zxdg_output_manager_v1_interface, 3, watch);
    plugIn();
}

void FakeShell::plugIn() {
    compositor_.offer(wl_output_interface, 3, [this](wl_resource* output) {
        log_.watch(output);
        outputs_.push_back(output);
        pluggedIn_.push_back(output);
        describeOutput(output);
    });
}

void FakeShell::unplug() {
    compositor_.withdraw(wl_output_interface);
    compositor_.run([this] { pluggedIn_.clear(); });
}

void FakeShell::describeOutput(wl_resource* output) const {
    wl_resource_post_event(output, outputGeometry, 0, 0, 0, 0, 0, "", "", 0);
    constexpr std::uint32_t current = 1;
    constexpr int milliHertz = 60'000;
    wl_resource_post_event(output, outputMode, current, outputWidth, outputHeight, milliHertz);
    wl_resource_post_event(output, outputScale, scale_);
    wl_resource_post_event(output, outputDone);
}

void FakeShell::setScale(int scale) {
    compositor_.send([&] {
        scale_ = scale;
        for (wl_resource* const output : pluggedIn_)
            describeOutput(output);
    });
}

void FakeShell::setAnnouncesFrames(bool announces) {
    compositor_.run([&] { announcesFrames_ = announces; });
}

void FakeShell::announceFrames() {
    compositor_.send([this] {
        for (auto& [object, surface] : surfaces_)
            announceFrames(surface);
    });
}

int FakeShell::waitingFrames() {
    std::size_t count = 0;
    compositor_.run([&] {
        for (const auto& [object, surface] : surfaces_)
            count += surface.frames.size();
    });
    return static_cast<int>(count);
}

FakeShell::Content FakeShell::latestContent() {
    Content content;
    compositor_.run([&] { content = latestContent_; });
    return content;
}

void FakeShell::setConfigures(bool configures) {
    compositor_.run([&] { configures_ = configures; });
}

void FakeShell::configure(int popupX, int popupY) {
    compositor_.run([&] {
        popupX_ = popupX;
        popupY_ = popupY;
        for (auto& [object, surface] : surfaces_)
            configureRole(surface);
    });
}

void FakeShell::closeLayers() {
    compositor_.run([this] {
        for (const auto& [object, surface] : surfaces_) {
            if (is(surface.role, "zwlr_layer_surface_v1"))
                wl_resource_post_event(surface.role, layerClosed);
        }
    });
}

void FakeShell::dismissPopups() {
    compositor_.run([this] {
        for (const auto& [object, surface] : surfaces_) {
            if (is(surface.role, "xdg_popup"))
                wl_resource_post_event(surface.role, popupDone);
        }
    });
}

void FakeShell::enterOutput() {
    compositor_.run([this] {
        for (const auto& [object, surface] : surfaces_)
            wl_resource_post_event(object, surfaceEnter, outputsOf(object).front());
    });
}

void FakeShell::leaveOutput() {
    compositor_.run([this] {
        for (const auto& [object, surface] : surfaces_)
            wl_resource_post_event(object, surfaceLeave, outputsOf(object).front());
    });
}

void FakeShell::enterOtherOutput() {
    compositor_.run([this] {
        for (const auto& [object, surface] : surfaces_) {
            const auto outputs = outputsOf(object);
            for (auto other = outputs.begin() + 1; other != outputs.end(); ++other)
                wl_resource_post_event(object, surfaceEnter, *other);
        }
    });
}

std::vector<wl_resource*> FakeShell::outputsOf(wl_resource* surface) const {
    std::vector<wl_resource*> own = outputs_;
    std::erase_if(own, [&](wl_resource* output) {
        return wl_resource_get_client(output) != wl_resource_get_client(surface);
    });
    return own;
}

RequestLog::Requests FakeShell::requests(const std::string& beginning) {
    auto all = requests();
    std::erase_if(all, [&](const std::string& each) { return !each.starts_with(beginning); });
    return all;
}

int FakeShell::count(const std::string& role) {
    std::ptrdiff_t count = 0;
    compositor_.run([&] {
        count = std::ranges::count_if(
            surfaces_, [&](const auto& entry) { return is(entry.second.role, role); });
    });
    return static_cast<int>(count);
}

int FakeShell::withContent() {
    std::ptrdiff_t count = 0;
    compositor_.run([&] {
        count = std::ranges::count_if(surfaces_,
                                      [](const auto& entry) { return entry.second.hasContent; });
    });
    return static_cast<int>(count);
}

std::vector<std::string> FakeShell::takeViolations() {
    std::vector<std::string> violations;
    compositor_.run([&] { violations = std::exchange(violations_, {}); });
    return violations;
}

void FakeShell::handle(const RequestLog::Request& request) {
    if (is(request.created, "wl_surface"))
        surfaces_[request.created] = {};
    if (is(request.object, "wl_surface"))
        handleSurface(request);
    if (request.name == "get_layer_surface" || request.name == "get_xdg_surface" ||
        (request.name == "get_popup" && request.created != nullptr))
        giveRole(request);
    if (request.name == "get_xdg_output") {
        wl_resource_post_event(request.created, xdgOutputPosition, 0, 0);
        wl_resource_post_event(request.created, xdgOutputSize, outputWidth, outputHeight);
        wl_resource_post_event(request.created, xdgOutputName, "FAKE-1");
        wl_resource_post_event(objectOf(request.arguments[1]), outputDone);
    }
    if (request.name == "ack_configure") {
        for (auto& [object, surface] : surfaces_) {
            if (surface.role == request.object || surface.xdgSurface == request.object)
                surface.isConfigured = true;
        }
    }
    if (request.name == "destroy" || request.name == "release")
        forget(request.object);
}

void FakeShell::handleSurface(const RequestLog::Request& request) {
    Surface& surface = surfaces_[request.object];
    if (request.name == "attach")
        surface.buffer = objectOf(request.arguments[0]);
    else if (request.name == "frame")
        surface.frames.push_back(request.created);
    else if (request.name == "set_buffer_scale")
        surface.bufferScale = request.arguments[0].i;
    else if (request.name == "commit")
        commit(request.object, surface);
}

void FakeShell::giveRole(const RequestLog::Request& request) {
    if (request.name == "get_layer_surface") {
        surfaces_[objectOf(request.arguments[1])].role = request.created;
    } else if (request.name == "get_xdg_surface") {
        surfaces_[objectOf(request.arguments[1])].xdgSurface = request.created;
    } else {
        for (auto& [object, surface] : surfaces_) {
            if (surface.xdgSurface == request.object)
                surface.role = request.created;
        }
    }
}

/// Called before the object is destroyed.
void FakeShell::forget(wl_resource* object) {
    std::erase(outputs_, object);
    std::erase(pluggedIn_, object);
    if (const auto found = surfaces_.find(object); found != surfaces_.end()) {
        if (found->second.role != nullptr || found->second.xdgSurface != nullptr)
            violations_.emplace_back("a surface is destroyed before its role");
        surfaces_.erase(found);
        return;
    }
    for (auto& [surfaceObject, surface] : surfaces_) {
        if (surface.xdgSurface == object) {
            if (surface.role != nullptr)
                violations_.emplace_back("an xdg_surface is destroyed before its popup");
            surface.xdgSurface = nullptr;
        } else if (surface.role == object) {
            surface.role = nullptr;
            surface.isConfigured = false;
        }
    }
}

void FakeShell::commit(wl_resource* object, Surface& surface) {
    const bool hasRole = surface.role != nullptr || surface.xdgSurface != nullptr;
    if (surface.buffer != nullptr) {
        if (hasRole && !surface.isConfigured)
            violations_.emplace_back("a surface gets content before its role is configured");
        show(surface);
    }
    if (configures_)
        configureRole(surface);
    const bool isFirst = compositor_.isFirst(wl_resource_get_client(object));
    if (announcesFrames_ && (framesForFirst_ || !isFirst))
        announceFrames(surface);
}

void FakeShell::show(Surface& surface) {
    surface.hasContent = true;
    if (wl_shm_buffer* const content = wl_shm_buffer_get(surface.buffer)) {
        latestContent_ = {wl_shm_buffer_get_width(content), wl_shm_buffer_get_height(content),
                          surface.bufferScale};
        if (latestContent_.width % surface.bufferScale != 0 ||
            latestContent_.height % surface.bufferScale != 0)
            violations_.emplace_back("a buffer's size is no multiple of its scale");
    }
    // It is not shown, so the client may use it again at once.
    wl_resource_post_event(surface.buffer, bufferRelease);
    surface.buffer = nullptr;
}

void FakeShell::announceFrames(Surface& surface) {
    for (wl_resource* const frame : surface.frames) {
        wl_resource_post_event(frame, callbackDone, ++serial_);
        wl_resource_destroy(frame);
    }
    surface.frames.clear();
}

void FakeShell::configureRole(Surface& surface) {
    if (surface.role == nullptr || surface.isConfigured)
        return;
    if (is(surface.role, "zwlr_layer_surface_v1")) {
        wl_resource_post_event(surface.role, layerConfigure, ++serial_, outputWidth, outputHeight);
    } else {
        wl_resource_post_event(surface.role, popupConfigure, popupX_, popupY_, 100, 50);
        wl_resource_post_event(surface.xdgSurface, xdgSurfaceConfigure, ++serial_);
    }
}

}
