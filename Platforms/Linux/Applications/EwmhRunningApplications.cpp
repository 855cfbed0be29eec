#include "Applications/EwmhRunningApplications.hpp"

#include "Applications/ClientWindows/WindowIcons.hpp"
#include "Applications/Identity/AppIdentity.hpp"
#include "Applications/Identity/PlainText.hpp"
#include "Applications/Identity/ProcessFacts.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vireline::x11 {
namespace {

/// EWMH source indication 2: the request comes from a pager or taskbar, that is, from the user.
constexpr std::uint32_t fromPager = 2;
constexpr std::uint32_t iconicState = 3;

/// How long a window manager may take to carry out a request.
constexpr double requestSeconds = HiddenWindows::settlingSeconds;

RunningApplication describeApp(const IdentifiedApp& app) {
    RunningApplication description;
    description.bundleID = app.bundleID;
    description.bundleURL = FileURL::fromPath(app.path);
    description.localizedName = app.name;
    return description;
}

}

EwmhRunningApplications::EwmhRunningApplications(X11Connection& connection, RunLoop& runLoop,
                                                 DesktopEntryCatalog& catalog)
    : connection_(connection)
    , runLoop_(runLoop)
    , catalog_(catalog)
    , clients_(connection, runLoop)
    , messenger_(connection)
    , launches_(runLoop) {
    clients_.onChange = [this] { update(); };
    messenger_.onMessage = [this](const StartupMessage& message) { handle(message); };
    launches_.onWillLaunch = [this](const IdentifiedApp& app) {
        willLaunch_.notify(describeApp(app));
    };
    launches_.onFinished = [this](const IdentifiedApp& app) {
        didLaunch_.notify(describeApp(app));
    };
    launches_.onFailed = [this](const IdentifiedApp& app) {
        didTerminate_.notify(describeApp(app));
    };
    launches_.onOurEnd = [this](const std::string& startupID) {
        if (std::erase(announced_, startupID) > 0)
            messenger_.broadcast({.kind = "remove", .values = {{"ID", startupID}}});
    };
    catalogChanges_ = catalog_.observeChanges(lifetime_.guard([this] { identifyAgain(); }));
    groups_ = currentGroups();
}

std::vector<RunningApplication> EwmhRunningApplications::running() const {
    std::vector<RunningApplication> apps;
    apps.reserve(groups_.size());
    for (const AppGroup& group : groups_)
        apps.push_back(describe(group));
    return apps;
}

std::vector<RunningApplication>
EwmhRunningApplications::instances(const std::string& bundleID) const {
    const AppGroup* group = AppGroups::find(groups_, bundleID);
    return group == nullptr ? std::vector<RunningApplication>{} : std::vector{describe(*group)};
}

void EwmhRunningApplications::hide(const RunningApplication& app) {
    const AppGroup* group = groupOf(app);
    if (group == nullptr)
        return;
    for (const xcb_window_t window : hidden_.hide(*group, currentDesktop(), runLoop_.now()))
        iconify(window);
    connection_.flush();
}

void EwmhRunningApplications::terminate(const RunningApplication& app) {
    const AppGroup* group = groupOf(app);
    if (group == nullptr)
        return;
    for (const ClientWindow& window : group->windows) {
        if (window.isOrdinary)
            close(window.id);
    }
    connection_.flush();
}

Subscription EwmhRunningApplications::observeWillLaunch(Handler handler) {
    return willLaunch_.add(std::move(handler));
}

Subscription EwmhRunningApplications::observeDidLaunch(Handler handler) {
    return didLaunch_.add(std::move(handler));
}

Subscription EwmhRunningApplications::observeDidTerminate(Handler handler) {
    return didTerminate_.add(std::move(handler));
}

std::vector<WindowIcon> EwmhRunningApplications::windowIcons(const std::string& bundleID) const {
    for (const ClientWindow& window : windows(bundleID)) {
        auto icons =
            WindowIcons::parse(connection_.words(window.id, "_NET_WM_ICON", XCB_ATOM_CARDINAL));
        if (!icons.empty())
            return icons;
    }
    return {};
}

bool EwmhRunningApplications::bringForward(const std::string& bundleID) {
    const AppGroup* group = AppGroups::find(groups_, bundleID);
    if (group == nullptr)
        return false;
    const ClientWindow& front = AppGroups::mostRecent(*group);
    for (const auto& [window, isKnownIconified] : hidden_.bringBack(*group, runLoop_.now())) {
        xcb_map_window(connection_.get(), window);
        // Mapping has no effect on a window that is yet to be iconified. Requests are carried out
        // in order, so activating it restores it after that.
        if (!isKnownIconified && window != front.id)
            activate(window);
    }
    showDesktopOf(front);
    activate(front.id);
    connection_.flush();
    return true;
}

std::optional<std::uint32_t> EwmhRunningApplications::currentDesktop() const {
    if (requestedDesktop_ && runLoop_.now() - requestedDesktop_->since < requestSeconds)
        return requestedDesktop_->value;
    return clients_.currentDesktop();
}

void EwmhRunningApplications::expectOnCurrentDesktop(xcb_window_t window) {
    windowSentToCurrentDesktop_ = Request{window, runLoop_.now()};
}

void EwmhRunningApplications::launchBegan(const std::string& startupID, const DesktopEntry& entry,
                                          const std::string& bundleID, bool tellsOthers) {
    IdentifiedApp app = AppIdentity::appOf(entry);
    app.bundleID = bundleID;
    launches_.begin(startupID, app, /*isOurs=*/true);
    if (!tellsOthers)
        return;
    announced_.push_back(startupID);
    StartupMessage message{.kind = "new", .values = {}};
    message.values = {{"ID", startupID},
                      {"NAME", entry.name},
                      {"SCREEN", std::to_string(connection_.screenNumber())},
                      {"APPLICATION_ID", entry.path}};
    if (!entry.startupWMClass.empty())
        message.values["WMCLASS"] = entry.startupWMClass;
    messenger_.broadcast(message);
}

bool EwmhRunningApplications::launchFailed(const std::string& startupID) {
    return launches_.fail(startupID);
}

std::vector<ClientWindow> EwmhRunningApplications::windows(const std::string& bundleID) const {
    const AppGroup* group = AppGroups::find(groups_, bundleID);
    return group == nullptr ? std::vector<ClientWindow>{} : group->windows;
}

void EwmhRunningApplications::update() {
    const auto before = std::exchange(groups_, currentGroups());
    hidden_.update(groups_, clients_.activeWindow());
    noteDesktops();
    announce(before);
}

/// Drops requested states once the window manager has reported them.
void EwmhRunningApplications::noteDesktops() {
    const auto desktop = clients_.currentDesktop();
    if (desktop != desktopBefore_)
        requestedDesktop_.reset();
    if (!windowSentToCurrentDesktop_ || !desktop)
        return;
    const auto& windows = clients_.windows();
    const auto sent =
        std::ranges::find(windows, windowSentToCurrentDesktop_->value, &ClientWindow::id);
    if (sent == windows.end() || sent->isOnDesktop(*desktop))
        windowSentToCurrentDesktop_.reset();
}

void EwmhRunningApplications::identifyAgain() {
    identified_.clear();
    update();
}

void EwmhRunningApplications::announce(const std::vector<AppGroup>& before) {
    for (const AppGroup& gone : AppGroups::without(before, groups_)) {
        didTerminate_.notify(describeApp(gone.app));
    }
    for (const AppGroup& fresh : AppGroups::without(groups_, before)) {
        launches_.appShowed(fresh.app.bundleID, fresh.windows.front().processIdentifier);
        didLaunch_.notify(describeApp(fresh.app));
    }
}

void EwmhRunningApplications::handle(const StartupMessage& message) {
    const std::string id = message.value("ID");
    if (message.kind == "remove") {
        std::erase(announced_, id);
        launches_.finish(id);
        return;
    }
    if (message.kind != "new")
        return;
    // If the app is already running, the launch only opens another window.
    const auto app = appNamedBy(message);
    if (app && AppGroups::find(groups_, app->bundleID) == nullptr)
        launches_.begin(id, *app, /*isOurs=*/false);
}

std::vector<AppGroup> EwmhRunningApplications::currentGroups() {
    const auto& windows = clients_.windows();
    std::erase_if(identified_, [&windows](const auto& item) {
        return std::ranges::find(windows, item.first, &ClientWindow::id) == windows.end();
    });
    std::vector<OwnedWindow> owned;
    owned.reserve(windows.size());
    for (const ClientWindow& window : windows)
        owned.push_back({window, identify(window)});
    return AppGroups::group(owned);
}

/// Inspecting a process is slow, so windows are identified again only when they changed.
IdentifiedApp EwmhRunningApplications::identify(const ClientWindow& window) {
    const auto known = identified_.find(window.id);
    if (known != identified_.end() && known->second.traits == window.traits &&
        known->second.processIdentifier == window.processIdentifier)
        return known->second.app;
    const auto launched = launches_.launchedApp(window.traits.startupID, window.processIdentifier);
    auto app =
        AppIdentity::identify(window.traits, ProcessInspection::read(window.processIdentifier),
                              catalog_.index(), launched);
    identified_[window.id] = {window.traits, window.processIdentifier, app};
    return app;
}

/// The launcher names the entry, or the WM_CLASS of the first window, or the executable.
std::optional<IdentifiedApp>
EwmhRunningApplications::appNamedBy(const StartupMessage& message) const {
    WindowTraits traits;
    traits.kdeDesktopFile = PlainText::clean(message.value("APPLICATION_ID"), 4096);
    traits.className = PlainText::clean(message.value("WMCLASS"));
    ProcessFacts process;
    process.executable = message.value("BIN");
    auto app = AppIdentity::identify(traits, process, catalog_.index());
    return app.hasEntry ? std::optional{std::move(app)} : std::nullopt;
}

RunningApplication EwmhRunningApplications::describe(const AppGroup& group) const {
    RunningApplication app = describeApp(group.app);
    app.processIdentifier = AppGroups::mostRecent(group).processIdentifier;
    const xcb_window_t active = clients_.activeWindow();
    app.isActive = AppGroups::isActive(group, active, clients_.currentDesktop()) &&
                   !hidden_.isLeaving(active, runLoop_.now());
    return app;
}

const AppGroup* EwmhRunningApplications::groupOf(const RunningApplication& app) const {
    return app.bundleID ? AppGroups::find(groups_, *app.bundleID) : nullptr;
}

/// Window managers differ in how they activate a window on another desktop: they switch to it,
/// bring the window over, or only mark it as urgent. Requesting the desktop first, as pagers do,
/// works the same everywhere.
void EwmhRunningApplications::showDesktopOf(const ClientWindow& window) {
    const auto current = currentDesktop();
    const bool isComing = windowSentToCurrentDesktop_ &&
                          windowSentToCurrentDesktop_->value == window.id &&
                          runLoop_.now() - windowSentToCurrentDesktop_->since < requestSeconds;
    if (!current || !window.desktop || window.isOnDesktop(*current) || isComing)
        return;
    desktopBefore_ = clients_.currentDesktop();
    requestedDesktop_ = Request{*window.desktop, runLoop_.now()};
    const std::array<std::uint32_t, 2> data{*window.desktop, connection_.userTime()};
    connection_.sendToRoot(connection_.root(), "_NET_CURRENT_DESKTOP", data);
}

void EwmhRunningApplications::iconify(xcb_window_t window) const {
    const std::array<std::uint32_t, 1> data{iconicState};
    connection_.sendToRoot(window, "WM_CHANGE_STATE", data);
}

void EwmhRunningApplications::activate(xcb_window_t window) const {
    const std::array<std::uint32_t, 3> data{fromPager, connection_.userTime(),
                                            clients_.activeWindow()};
    connection_.sendToRoot(window, "_NET_ACTIVE_WINDOW", data);
}

void EwmhRunningApplications::close(xcb_window_t window) const {
    const auto supported = connection_.atoms(connection_.root(), "_NET_SUPPORTED");
    const xcb_atom_t request = connection_.atom("_NET_CLOSE_WINDOW");
    if (std::ranges::find(supported, request) != supported.end()) {
        const std::array<std::uint32_t, 2> data{connection_.userTime(), fromPager};
        connection_.sendToRoot(window, "_NET_CLOSE_WINDOW", data);
        return;
    }
    // If the window manager does not support this, the window itself is asked to close, provided it
    // takes part in the protocol.
    const auto protocols = connection_.atoms(window, "WM_PROTOCOLS");
    const xcb_atom_t deletion = connection_.atom("WM_DELETE_WINDOW");
    if (std::ranges::find(protocols, deletion) != protocols.end()) {
        const std::array<std::uint32_t, 2> data{deletion, connection_.userTime()};
        connection_.sendToWindow(window, "WM_PROTOCOLS", data);
    }
}

}
