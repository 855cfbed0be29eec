#include "App/HostPlatform.hpp"

#include "App/DesktopPlatform.hpp"
#include "App/SingleInstance.hpp"
#include "App/X11WindowSystem.hpp"
#include "Connection/XServer.hpp"
#include "Files/LogFile.hpp"
#include "Files/StartLog.hpp"
#include "Foundation/DevLog.hpp"
#include "GLib/BusProbe.hpp"
#include "Toolkit/PluginApplication.hpp"
#include "Toolkit/QtRunLoop.hpp"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vireline {
namespace {

using namespace x11;

/// Must run before Qt starts, because Qt would wait for the bus. Returns whether the session bus
/// was hung.
bool unsetHungSessionBus() {
    constexpr unsigned int timeout = 1;
    if (xdg::BusProbe::answers(xdg::BusProbe::sessionAddress(), timeout))
        return false;
    xdg::BusProbe::hideSessionBus();
    return true;
}

}

/// Each part may use the parts declared above it.
struct HostPlatform::Parts {
    explicit Parts(std::unique_ptr<SingleInstance> claimed) : instance(std::move(claimed)) {}

    std::unique_ptr<SingleInstance> instance;
    xdg::PluginApplication qt{"xcb"};
    xdg::QtRunLoop runLoop;
    X11WindowSystem windowSystem{*instance, runLoop};
    xdg::DesktopPlatform desktop{qt.qt(), runLoop, windowSystem};
};

std::expected<std::unique_ptr<HostPlatform>, HostPlatform::ExitStatus> HostPlatform::start() {
    auto server = XServer::connect();
    if (!server) {
        std::fprintf(stderr, "vireline: %s\n", server.error().description.c_str());
        return std::unexpected{EXIT_FAILURE};
    }
    auto instance = SingleInstance::claim(*std::move(server));
    if (!instance) {
        std::puts("Vireline is already running; asked it to show its settings.");
        return std::unexpected{EXIT_SUCCESS};
    }
    DevLog::setAppender(xdg::LogFile::append);
    const bool isBusHidden = unsetHungSessionBus();
    auto parts = std::make_unique<Parts>(std::move(instance));
    if (isBusHidden)
        xdg::logOnceStarted("session bus does not answer, going on without it");
    return std::unique_ptr<HostPlatform>{new HostPlatform{std::move(parts)}};
}

HostPlatform::HostPlatform(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}

HostPlatform::~HostPlatform() = default;

Platform HostPlatform::ports() {
    return parts_->desktop.ports();
}

}
