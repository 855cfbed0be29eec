#include "VirtualDesktop/VirtualDesktop.hpp"

#include "VirtualDesktop/Compositors/CompositorStart.hpp"
#include "VirtualDesktop/Compositors/SwaySession.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Session/ManagerState.hpp"

#include <algorithm>
#include <csignal>
#include <iterator>
#include <stdexcept>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

constexpr const char* installedData = "/usr/local/share:/usr/share";

/// The X screen of the options, or a larger one if the monitors need it.
XServer::Options serverOptions(const VirtualDesktop::Options& options, const Home& home) {
    XServer::Options server{options.width, options.height, options.randr, options.outputs,
                            home.scratch() / "x-server.log"};
    for (const auto& monitor : options.monitors) {
        server.width = std::max(server.width, monitor.frame.right());
        server.height = std::max(server.height, monitor.frame.bottom());
    }
    return server;
}

void require(bool came, const char* what) {
    if (!came)
        throw std::runtime_error{std::string{what} + " does not start"};
}

}

VirtualDesktop::VirtualDesktop(Programs programs, const Options& options)
    : programs_(std::move(programs))
    , home_(programs_.testApp)
    , server_(serverOptions(options, home_))
    , client_(std::make_unique<XClient>(server_.display()))
    , manager_(options.manager.value_or(Manager::openbox))
    , managerComposites_(options.managerComposites)
    , hasOutputs_(options.outputs) {
    displays_.scales = options.scales;
    environment_ = home_.environment();
    environment_["DISPLAY"] = server_.display();
    if (!options.scales.empty() && !desktop::isWayland(manager_))
        environment_["QT_SCREEN_SCALE_FACTORS"] = displays_.scaleFactors();
    if (options.installedApps)
        environment_["XDG_DATA_DIRS"] += std::string{":"} + installedData;
    if (desktop::isWayland(manager_))
        startSession(options);
    else if (!options.monitors.empty())
        setMonitors(options.monitors);
    if ((options.sessionBus || options.accessibility) && !bus_)
        startSessionBus();
    if (options.accessibility)
        startAccessibilityBus();
    if (options.windowManager && !session_)
        startWindowManager();
    if (options.compositor && !session_)
        startCompositor();
}

void VirtualDesktop::setMonitors(const std::vector<Monitor>& monitors) {
    displays_.monitors = monitors;
    if (session_) {
        session_->setMonitors(monitors);
        displays_.sortForWayland(session_->displayIDs(), session_->origin());
    } else if (hasOutputs_) {
        setOutputs(*client_, monitors);
    } else {
        desktop::setMonitors(*client_, monitors);
    }
}

const Monitor& VirtualDesktop::monitor(const std::string& name) const {
    return *std::ranges::find(displays_.monitors, name, &Monitor::name);
}

std::uint32_t VirtualDesktop::displayIDOf(const std::string& monitor) const {
    return displays_.idOf(*client_, monitor);
}

void VirtualDesktop::startSession(const Options& options) {
    displays_.monitors = options.monitors;
    displays_.showsOnlyStrips = true;
    if (needsSessionBus(manager_))
        startSessionBus();
    session_ = desktop::startCompositor(
        *client_, {.compositor = manager_,
                   .home = home_,
                   .display = server_.display(),
                   .sessionBus = environment_["DBUS_SESSION_BUS_ADDRESS"],
                   .monitors = options.monitors,
                   .scales = options.scales,
                   .permitted = options.isPermitted ? programs_.vireline : fs::path{}});
    sway_ = dynamic_cast<const SwaySession*>(session_.get());
    displays_.sortForWayland(session_->displayIDs(), session_->origin());
    environment_.erase("DISPLAY");
    environment_.merge(session_->environment());
}

Environment VirtualDesktop::sessionEnvironment() const {
    // The session's own programs need their themes and settings, which are not in the home folder.
    Environment environment = environment_;
    environment["XDG_DATA_DIRS"] = installedData;
    environment["XDG_CONFIG_DIRS"] = "/etc/xdg";
    return environment;
}

std::string VirtualDesktop::startBus(std::optional<ChildProcess>& bus, const fs::path& socket,
                                     const Environment& environment) {
    const std::string address = "unix:path=" + socket.string();
    bus.emplace(Command{"dbus-daemon",
                        {"--session", "--nofork", "--nopidfile", "--address=" + address},
                        environment,
                        {},
                        socket.string() + ".log",
                        {}});
    // The socket exists some time before the bus answers.
    require(eventually([&] { return BusClient::answers(address); }), "the session bus");
    return address;
}

void VirtualDesktop::startSessionBus() {
    environment_["DBUS_SESSION_BUS_ADDRESS"] =
        startBus(bus_, home_.scratch() / "bus", environment_);
}

/// A separate bus, whose address the session bus provides.
void VirtualDesktop::startAccessibilityBus() {
    accessibilityBus_.emplace(Command{"/usr/libexec/at-spi-bus-launcher",
                                      {"--launch-immediately", "--a11y=1"},
                                      sessionEnvironment(),
                                      {},
                                      home_.scratch() / "accessibility-bus.log",
                                      {}});
    const BusClient session{environment_.at("DBUS_SESSION_BUS_ADDRESS")};
    require(eventually([&] {
                const auto reply = session.call({"org.a11y.Bus", "/org/a11y/bus"}, "org.a11y.Bus",
                                                "GetAddress", nullptr);
                const char* address = "";
                if (reply)
                    g_variant_get(reply.get(), "(&s)", &address);
                accessibilityAddress_ = address;
                return !accessibilityAddress_.empty();
            }),
            "the accessibility bus");
}

void VirtualDesktop::startWindowManager() {
    startWindowManager({.composites = managerComposites_});
}

void VirtualDesktop::stopWindowManager() {
    if (!windowManager_)
        return;
    windowManager_->signal(SIGTERM);
    require(eventually([&] { return managerWindow(*client_) == XCB_NONE; }),
            "the end of the window manager");
    awaitEnd(*windowManager_);
    windowManager_.reset();
    // Only then has the server released the window manager's grabs.
    require(eventually([&] { return !client_->isManaged(); }), "the end of the window manager");
}

void VirtualDesktop::replaceWindowManager(Manager manager) {
    std::optional<ChildProcess> former;
    if (windowManager_ && handsOver(manager_) && handsOver(manager))
        former.emplace(std::move(*windowManager_));
    windowManager_.reset();
    manager_ = manager;
    startWindowManager({.composites = managerComposites_, .replaces = former.has_value()});
    if (former)
        awaitEnd(*former);
}

void VirtualDesktop::startWindowManager(const ManagerOptions& options) {
    const auto former = managerWindow(*client_);
    const auto folder = home_.scratch() / shortName(manager_);
    windowManager_.emplace(windowManagerCommand(manager_, options, folder, managerEnvironment()));
    require(eventually([&] {
                const auto window = managerWindow(*client_);
                return window != XCB_NONE && (!options.replaces || window != former);
            }) &&
                managesWindows(*client_),
            "the window manager");
    if (options.composites && canComposite(manager_))
        requireCompositor();
    // Some managers start with a monitor layout of their own.
    if (hasOutputs_)
        setOutputs(*client_, displays_.monitors);
    if (manager_ == Manager::bspwm)
        requireDesktops();
}

/// bspwm sets up desktops monitor by monitor, and may forget a window that appears before that.
void VirtualDesktop::requireDesktops() {
    const std::vector wanted{static_cast<std::uint32_t>(2 * displays_.monitors.size())};
    require(eventually([&] {
                return client_->items(client_->root(), "_NET_NUMBER_OF_DESKTOPS") == wanted;
            }),
            "the window manager's desktops");
}

/// Uses a separate bus, so that the program sees only what it is given of a session.
Environment VirtualDesktop::managerEnvironment() {
    Environment environment = sessionEnvironment();
    if (needsSessionBus(manager_)) {
        const auto socket = home_.scratch() / "manager-bus";
        environment["DBUS_SESSION_BUS_ADDRESS"] = managerBus_
                                                      ? "unix:path=" + socket.string()
                                                      : startBus(managerBus_, socket, environment);
    }
    if (manager_ == Manager::xfwm4 && !hasOutputs_)
        environment["LD_PRELOAD"] = programs_.monitorOutputs.string();
    return environment;
}

void VirtualDesktop::startCompositor() {
    compositor_.emplace(Command{"picom",
                                {"--config", "/dev/null", "--backend", "xrender"},
                                sessionEnvironment(),
                                {},
                                home_.scratch() / "compositor.log",
                                {}});
    requireCompositor();
}

void VirtualDesktop::requireCompositor() const {
    require(eventually([&] { return client_->selectionOwner("_NET_WM_CM_S0") != XCB_NONE; }),
            "the compositor");
}

void VirtualDesktop::reserve(const Reservation& reservation) {
    displays_.reservations.push_back(reservation);
    if (session_)
        runPanel(reservation, {});
    else
        startPanel(reservation);
}

ChildProcess& VirtualDesktop::runPanel(const Reservation& place,
                                       const std::vector<std::string>& arguments) {
    const auto frame = panelFrame(monitor(place.monitor), place.edge, place.thickness);
    session_->ignore(frame);
    std::vector<std::string> all{session_->outputOf(place.monitor), nameOf(place.edge),
                                 std::to_string(place.thickness), "202830"};
    std::ranges::copy(arguments, std::back_inserter(all));
    auto& panel = panels_.emplace_back(Command{programs_.waylandPanel.string(),
                                               std::move(all),
                                               environment_,
                                               {},
                                               home_.scratch() / "panel.log",
                                               {}});
    constexpr Colour colour{0x20, 0x28, 0x30};
    require(eventually([&] { return isSame(pixel(frame.center()), colour); }), "the panel");
    return panel;
}

void VirtualDesktop::startPanel(const Reservation& reservation) {
    const auto frame =
        panelFrame(monitor(reservation.monitor), reservation.edge, reservation.thickness);
    const auto title = "panel " + std::to_string(displays_.reservations.size());
    panels_.emplace_back(
        Command{programs_.testApp.string(),
                {"--class", "other-panel", "--title", title, "--size",
                 std::to_string(frame.width) + "x" + std::to_string(frame.height), "--at",
                 std::to_string(frame.x) + "," + std::to_string(frame.y), "--strut",
                 nameOf(reservation.edge) + ":" + std::to_string(reservation.thickness), "--colour",
                 "202830"},
                environment_,
                {},
                home_.scratch() / "panel.log",
                {}});
    require(eventually([&] {
                return std::ranges::any_of(client_->allWindows(), [&](xcb_window_t window) {
                    return client_->text(window, "WM_NAME") == title && client_->isViewable(window);
                });
            }),
            "the panel");
}

void VirtualDesktop::endReservations() {
    displays_.reservations.clear();
    panels_.clear();
    if (session_)
        session_->ignoreNothing();
}

ChildProcess& VirtualDesktop::startVireline() {
    return startVirelineThrough({});
}

ChildProcess& VirtualDesktop::startVirelineThrough(std::vector<std::string> command) {
    command.push_back(programs_.vireline.string());
    return vireline_.emplace(Command{command.front(),
                                     {command.begin() + 1, command.end()},
                                     environment_,
                                     home_.scratch() / "vireline.out",
                                     home_.scratch() / "vireline.err",
                                     {}});
}

void VirtualDesktop::runVireline() {
    const int before = log().count("reconcile ");
    startVireline();
    require(
        eventually([&] { return log().count("reconcile ") > before || !vireline().isRunning(); }),
        "the program");
    require(vireline().isRunning(), "the program");
}

ChildProcess& VirtualDesktop::vireline() {
    if (!vireline_)
        throw std::logic_error{"the program was not started"};
    return *vireline_;
}

ChildProcess& VirtualDesktop::run(const std::string& program, std::vector<std::string> arguments) {
    return apps_.emplace_back(
        Command{program, std::move(arguments), environment_, {}, home_.scratch() / "apps.log", {}});
}

ChildProcess& VirtualDesktop::launch(const App& app, std::vector<std::string> arguments) {
    placeWindowsOf(app, arguments);
    std::vector<std::string> all{"--class", windowClass(app), "--title", app.name};
    std::ranges::copy(app.arguments, std::back_inserter(all));
    std::ranges::move(arguments, std::back_inserter(all));
    return run(programs_.testApp.string(), std::move(all));
}

NotifierHost VirtualDesktop::startNotifierHost(bool showsItems) {
    const std::vector<std::string> arguments =
        showsItems ? std::vector<std::string>{} : std::vector<std::string>{"--no-host"};
    notifierHost_.emplace(Command{programs_.notifierHost.string(),
                                  arguments,
                                  environment_,
                                  {},
                                  home_.scratch() / "notifier-host.log",
                                  {}});
    NotifierHost host{environment_.at("DBUS_SESSION_BUS_ADDRESS")};
    require(eventually([&] { return host.isThere(); }), "the panel for status items");
    return host;
}

fs::path VirtualDesktop::startFileManagerService() {
    auto calls = home_.scratch() / "file-manager-calls";
    const auto ready = home_.scratch() / "file-manager-ready";
    run(programs_.fileManager.string(), {calls.string(), ready.string()});
    require(eventually([&] { return fs::exists(ready); }), "the file manager's service");
    return calls;
}

std::vector<PlannedDock> VirtualDesktop::planned(const PanelPlanner::Request& request) const {
    return plannedDocks(*client_, displays_, request);
}

Colour VirtualDesktop::pixel(PixelPoint place) const {
    return picture({place.x, place.y, 1, 1}).at(0, 0);
}

}
