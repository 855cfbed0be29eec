#include "Applications/DesktopRunningApplications.hpp"

#include "Applications/ClientWindows/AppWindows.hpp"
#include "Applications/Identity/AppIdentity.hpp"
#include "Applications/Identity/ProcessFacts.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vireline::xdg {
namespace {

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

DesktopRunningApplications::DesktopRunningApplications(WindowList& windowList,
                                                       StartupNotices& notices, RunLoop& runLoop,
                                                       DesktopEntryCatalog& catalog)
    : windows_(windowList)
    , notices_(notices)
    , runLoop_(runLoop)
    , catalog_(catalog)
    , launches_(runLoop) {
    windowChanges_ = windows_.observe([this] { update(); });
    messages_ = notices_.observe([this](const StartupMessage& message) { handle(message); });
    launches_.onChange = [this](const LaunchTracker::Change& change) { launchChanged(change); };
    catalogChanges_ = catalog_.observeChanges(lifetime_.guard([this] { identifyAgain(); }));
    groups_ = currentGroups();
    noteAttention();
}

std::vector<RunningApplication> DesktopRunningApplications::running() const {
    std::vector<RunningApplication> apps;
    apps.reserve(groups_.size());
    for (const AppGroup& group : groups_)
        apps.push_back(describe(group));
    return apps;
}

std::vector<RunningApplication>
DesktopRunningApplications::instances(const std::string& bundleID) const {
    const AppGroup* group = AppGroups::find(groups_, bundleID);
    return group == nullptr ? std::vector<RunningApplication>{} : std::vector{describe(*group)};
}

void DesktopRunningApplications::hide(const RunningApplication& app) {
    const AppGroup* group = groupOf(app);
    if (group == nullptr)
        return;
    for (const WindowID window : hidden_.hide(*group, currentDesktop(), runLoop_.now()))
        windows_.iconify(window);
    windows_.flush();
}

void DesktopRunningApplications::terminate(const RunningApplication& app) {
    const AppGroup* group = groupOf(app);
    if (group == nullptr)
        return;
    for (const ClientWindow& window : group->windows) {
        if (window.isOrdinary)
            windows_.close(window.id);
    }
    windows_.flush();
}

Subscription DesktopRunningApplications::observeWillLaunch(Handler handler) {
    return willLaunch_.add(std::move(handler));
}

Subscription DesktopRunningApplications::observeDidLaunch(Handler handler) {
    return didLaunch_.add(std::move(handler));
}

Subscription DesktopRunningApplications::observeDidTerminate(Handler handler) {
    return didTerminate_.add(std::move(handler));
}

std::vector<WindowIcon> DesktopRunningApplications::windowIcons(const std::string& bundleID) const {
    for (const ClientWindow& window : windows(bundleID)) {
        auto icons = windows_.icons(window.id);
        if (!icons.empty())
            return icons;
    }
    return {};
}

bool DesktopRunningApplications::bringForward(const std::string& bundleID) {
    const AppGroup* group = AppGroups::find(groups_, bundleID);
    if (group == nullptr)
        return false;
    const ClientWindow& front = AppGroups::mostRecent(*group);
    for (const auto& [window, isKnownIconified] : hidden_.bringBack(*group, runLoop_.now())) {
        windows_.restore(window);
        // `restore` has no effect on a window that is yet to be iconified. Requests are carried
        // out in order, so activating it restores it after that.
        if (!isKnownIconified && window != front.id)
            windows_.activate(window);
    }
    showDesktopOf(front);
    windows_.activate(front.id);
    windows_.flush();
    return true;
}

bool DesktopRunningApplications::bringWindowForward(WindowID window) {
    for (const AppGroup& group : groups_) {
        const auto found = std::ranges::find(group.windows, window, &ClientWindow::id);
        if (found == group.windows.end())
            continue;
        const AppGroup alone{group.app, {*found}};
        if (!hidden_.bringBack(alone, runLoop_.now()).empty() || found->isHidden)
            windows_.restore(window);
        showDesktopOf(*found);
        windows_.activate(window);
        windows_.flush();
        return true;
    }
    return false;
}

std::vector<DesktopRunningApplications::TitledWindow>
DesktopRunningApplications::titledWindows(const std::string& bundleID) const {
    const auto listed = AppWindows::latestFirst(windows(bundleID));
    std::vector<WindowID> ids;
    std::ranges::transform(listed, std::back_inserter(ids), &ClientWindow::id);
    const auto titles = windows_.titles(ids);
    std::vector<TitledWindow> titled;
    titled.reserve(ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i)
        titled.push_back({ids[i], i < titles.size() ? titles[i] : std::string{},
                          ids[i] == windows_.activeWindow() && !listed[i].isHidden});
    return titled;
}

std::optional<std::uint32_t> DesktopRunningApplications::currentDesktop() const {
    if (requestedDesktop_ && runLoop_.now() - requestedDesktop_->since < requestSeconds)
        return requestedDesktop_->desktop;
    return windows_.currentDesktop();
}

void DesktopRunningApplications::expectOnCurrentDesktop(WindowID window) {
    windowSentToCurrentDesktop_ = SentWindow{window, runLoop_.now()};
}

void DesktopRunningApplications::launchBegan(const std::string& startupID,
                                             const DesktopEntry& entry, const std::string& bundleID,
                                             bool tellsOthers) {
    IdentifiedApp app = AppIdentity::appOf(entry);
    app.bundleID = bundleID;
    launches_.begin(startupID, app, /*isOurs=*/true);
    if (!tellsOthers)
        return;
    announced_.push_back(startupID);
    StartupMessage message{.kind = "new", .values = {}};
    message.values = {{"ID", startupID}, {"NAME", entry.name}, {"APPLICATION_ID", entry.path}};
    if (!entry.startupWMClass.empty())
        message.values["WMCLASS"] = entry.startupWMClass;
    notices_.broadcast(std::move(message));
}

void DesktopRunningApplications::launchChanged(const LaunchTracker::Change& change) {
    using State = LaunchTracker::State;
    const bool isOver = change.state == State::failed || change.state == State::showedWindow;
    if (isOver && std::erase(announced_, change.startupID) > 0)
        notices_.broadcast({.kind = "remove", .values = {{"ID", change.startupID}}});
    if (change.state == State::began)
        willLaunch_.notify(describeApp(change.app));
    else if (change.state == State::finished)
        didLaunch_.notify(describeApp(change.app));
    else if (change.state == State::failed)
        didTerminate_.notify(describeApp(change.app));
}

bool DesktopRunningApplications::launchFailed(const std::string& startupID) {
    return launches_.fail(startupID);
}

std::vector<ClientWindow> DesktopRunningApplications::windows(const std::string& bundleID) const {
    const AppGroup* group = AppGroups::find(groups_, bundleID);
    return group == nullptr ? std::vector<ClientWindow>{} : group->windows;
}

void DesktopRunningApplications::update() {
    const auto before = std::exchange(groups_, currentGroups());
    hidden_.update(groups_, windows_.activeWindow());
    noteDesktops();
    announce(before);
    noteAttention();
}

void DesktopRunningApplications::noteAttention() {
    AppAttention now;
    for (const AppGroup& group : groups_) {
        if (std::ranges::any_of(group.windows, &ClientWindow::isUrgent))
            now.demanding.insert(group.app.bundleID);
        if (AppGroups::isActive(group, windows_.activeWindow(), windows_.currentDesktop()))
            now.active = group.app.bundleID;
    }
    if (now == attention_)
        return;
    attention_ = std::move(now);
    attentionChanges_.notify();
}

/// Drops requested states once the window manager has reported them.
void DesktopRunningApplications::noteDesktops() {
    const auto desktop = windows_.currentDesktop();
    if (desktop != desktopBefore_)
        requestedDesktop_.reset();
    if (!windowSentToCurrentDesktop_ || !desktop)
        return;
    const auto& windows = windows_.windows();
    const auto sent =
        std::ranges::find(windows, windowSentToCurrentDesktop_->window, &ClientWindow::id);
    if (sent == windows.end() || sent->isOnDesktop(*desktop))
        windowSentToCurrentDesktop_.reset();
}

void DesktopRunningApplications::identifyAgain() {
    identified_.clear();
    update();
}

void DesktopRunningApplications::announce(const std::vector<AppGroup>& before) {
    for (const AppGroup& gone : AppGroups::without(before, groups_)) {
        didTerminate_.notify(describeApp(gone.app));
    }
    for (const AppGroup& fresh : AppGroups::without(groups_, before)) {
        launches_.appShowed(fresh.app.bundleID, fresh.windows.front().processIdentifier);
        didLaunch_.notify(describeApp(fresh.app));
    }
}

void DesktopRunningApplications::handle(const StartupMessage& message) {
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

std::vector<AppGroup> DesktopRunningApplications::currentGroups() {
    const auto& windows = windows_.windows();
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
IdentifiedApp DesktopRunningApplications::identify(const ClientWindow& window) {
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
DesktopRunningApplications::appNamedBy(const StartupMessage& message) const {
    WindowTraits traits;
    traits.kdeDesktopFile = PlainText::clean(message.value("APPLICATION_ID"), 4096);
    traits.className = PlainText::clean(message.value("WMCLASS"));
    ProcessFacts process;
    process.executable = message.value("BIN");
    auto app = AppIdentity::identify(traits, process, catalog_.index());
    return app.hasEntry ? std::optional{std::move(app)} : std::nullopt;
}

RunningApplication DesktopRunningApplications::describe(const AppGroup& group) const {
    RunningApplication app = describeApp(group.app);
    app.processIdentifier = AppGroups::mostRecent(group).processIdentifier;
    const WindowID active = windows_.activeWindow();
    app.isActive = AppGroups::isActive(group, active, windows_.currentDesktop()) &&
                   !hidden_.isLeaving(active, runLoop_.now());
    return app;
}

const AppGroup* DesktopRunningApplications::groupOf(const RunningApplication& app) const {
    return app.bundleID ? AppGroups::find(groups_, *app.bundleID) : nullptr;
}

/// Window managers differ in how they activate a window on another desktop: they switch to it,
/// bring the window over, or only mark it as urgent. Requesting the desktop first, as pagers do,
/// works the same everywhere.
void DesktopRunningApplications::showDesktopOf(const ClientWindow& window) {
    const auto current = currentDesktop();
    const bool isComing = windowSentToCurrentDesktop_ &&
                          windowSentToCurrentDesktop_->window == window.id &&
                          runLoop_.now() - windowSentToCurrentDesktop_->since < requestSeconds;
    if (!current || !window.desktop || window.isOnDesktop(*current) || isComing)
        return;
    desktopBefore_ = windows_.currentDesktop();
    requestedDesktop_ = DesktopRequest{*window.desktop, runLoop_.now()};
    windows_.showDesktop(*window.desktop);
}

}
