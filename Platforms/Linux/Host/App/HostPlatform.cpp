#include "App/HostPlatform.hpp"

#include "App/DesktopPlatform.hpp"
#include "App/SingleInstance.hpp"
#include "App/WindowSystemChoice.hpp"
#include "App/X11WindowSystem.hpp"
#include "Connection/XServer.hpp"
#include "Files/Log/LogFile.hpp"
#include "Files/Log/StartLog.hpp"
#include "Foundation/DevLog.hpp"
#include "GLib/BusProbe.hpp"
#include "Toolkit/PluginApplication.hpp"
#include "Toolkit/QtRunLoop.hpp"
#ifdef VIRELINE_HAS_WAYLAND
#include "App/WaylandSession.hpp"
#include "App/WaylandWindowSystem.hpp"
#include "Session/SessionInstance.hpp"
#endif

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace vireline {

/// What the platform owns; each kind has its own parts. Each part may use the parts declared above
/// it.
struct HostPlatform::Parts : private NonCopyable {
    virtual ~Parts() = default;
    [[nodiscard]] virtual Platform ports() = 0;
};

namespace {

/// Must run before Qt starts, because Qt would wait for the bus. Returns whether the session bus
/// was hung.
bool unsetHungSessionBus() {
    constexpr unsigned int timeout = 1;
    if (xdg::BusProbe::answers(xdg::BusProbe::sessionAddress(), timeout))
        return false;
    xdg::BusProbe::hideSessionBus();
    return true;
}

struct X11Parts final : HostPlatform::Parts {
    explicit X11Parts(std::unique_ptr<x11::SingleInstance> claimed)
        : instance(std::move(claimed)) {}

    Platform ports() override { return desktop.ports(); }

    std::unique_ptr<x11::SingleInstance> instance;
    // A menu has grabbed pointer and keyboard, so nothing else can get them. But a tenth of a
    // second after a drag has ungrabbed the keyboard, Qt takes the program for inactive.
    xdg::PluginApplication qt{"xcb", xdg::PluginApplication::InactivePopups::stay};
    xdg::QtRunLoop runLoop;
    x11::X11WindowSystem windowSystem{*instance, runLoop};
    xdg::DesktopPlatform desktop{qt.qt(), runLoop, windowSystem};
};

#ifdef VIRELINE_HAS_WAYLAND

struct WaylandParts final : HostPlatform::Parts {
    explicit WaylandParts(std::unique_ptr<wayland::SessionInstance> claimed)
        : instance(std::move(claimed)) {}

    Platform ports() override { return desktop.ports(); }

    std::unique_ptr<wayland::SessionInstance> instance;
    wayland::WaylandSession session;
    // Menus close when the keyboard leaves the program, the only sign of a click elsewhere.
    xdg::PluginApplication qt{"wayland", xdg::PluginApplication::InactivePopups::close};
    xdg::QtRunLoop runLoop;
    wayland::WaylandWindowSystem windowSystem{*instance, runLoop};
    xdg::DesktopPlatform desktop{qt.qt(), runLoop, windowSystem};
};

#endif

using StartedParts = std::expected<std::unique_ptr<HostPlatform::Parts>, HostPlatform::ExitStatus>;

/// Whatever may wait or log, once it is certain that this process is the only instance.
template <class MakeParts>
std::unique_ptr<HostPlatform::Parts> start(const MakeParts& makeParts) {
    DevLog::setAppender(xdg::LogFile::append);
    const bool isBusHidden = unsetHungSessionBus();
    auto parts = makeParts();
    if (isBusHidden)
        xdg::logOnceStarted("session bus does not answer, going on without it");
    return parts;
}

StartedParts alreadyRuns() {
    std::puts("Vireline is already running; asked it to show its settings.");
    return std::unexpected{EXIT_SUCCESS};
}

StartedParts startOnX11() {
    auto server = x11::XServer::connect();
    if (!server) {
        std::fprintf(stderr, "vireline: %s\n", server.error().description.c_str());
        return std::unexpected{EXIT_FAILURE};
    }
    auto instance = x11::SingleInstance::claim(*std::move(server));
    if (!instance)
        return alreadyRuns();
    return start([&] { return std::make_unique<X11Parts>(std::move(instance)); });
}

#ifdef VIRELINE_HAS_WAYLAND

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string{} : value;
}

StartedParts startOnWayland() {
    auto instance =
        wayland::SessionInstance::claim(variable("XDG_RUNTIME_DIR"), variable("WAYLAND_DISPLAY"));
    if (!instance)
        return alreadyRuns();
    return start([&] { return std::make_unique<WaylandParts>(std::move(instance)); });
}

#endif

SessionFacts facts() {
    SessionFacts facts;
    facts.hasXServer = std::getenv("DISPLAY") != nullptr;
#ifdef VIRELINE_HAS_WAYLAND
    if (const auto offer = wayland::WaylandSession::offer()) {
        facts.hasCompositor = true;
        facts.hasWaylandPlugin = wayland::WaylandSession::hasPlugin();
        facts.hasLayerShell = offer->hasLayerShell;
        facts.listsWindows = offer->listsWindows;
        facts.isKWin = offer->isKWin;
    }
#endif
    return facts;
}

StartedParts startOn(WindowSystemChoice::Kind kind) {
#ifdef VIRELINE_HAS_WAYLAND
    if (kind == WindowSystemChoice::Kind::wayland)
        return startOnWayland();
#endif
    (void)kind;
    return startOnX11();
}

}

std::expected<std::unique_ptr<HostPlatform>, HostPlatform::ExitStatus> HostPlatform::start() {
    const auto choice = WindowSystemChoice::of(facts());
    auto parts = startOn(choice.kind);
    if (!parts)
        return std::unexpected{parts.error()};
    if (!choice.remark.empty())
        xdg::logOnceStarted(choice.remark);
    return std::unique_ptr<HostPlatform>{new HostPlatform{*std::move(parts)}};
}

HostPlatform::HostPlatform(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}

HostPlatform::~HostPlatform() = default;

Platform HostPlatform::ports() {
    return parts_->ports();
}

}
