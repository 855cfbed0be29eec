#include "App/AppDelegate.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/Application.hpp"
#include "Platform/Applications/Workspace.hpp"
#include "Views/Input/DemoCursor.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

namespace vireline {
namespace {

std::optional<double> demoCursor() {
    const char* const text = std::getenv("VIRELINE_DEMO_CURSOR");
    return text == nullptr ? std::nullopt : demoCursorFraction(text);
}

}

AppDelegate::AppDelegate(const Platform& platform)
    : platform_(platform)
    , icons_(platform.icons)
    , monitor_(platform.runningApplications)
    , signals_(platform.launcherAnnouncements, platform.runningApplications, platform.runLoop,
               model_)
    , activator_(platform.runningApplications, platform.workspace, platform.catalog,
                 platform.screens, platform.accessibility)
    , loginItem_(platform.loginItemService)
    , anchorGuard_(platform.accessibility, platform.pointerTaps, platform.runLoop)
    , trashService_(platform.trash, platform.userFolders, platform.runLoop)
    , store_(platform.fileSystem, platform.userFolders)
    , resolver_(store_, platform)
    , coordinator_(makeViewContext(), platform.screens, platform.panelWindows)
    , windowMover_(platform.accessibility, platform.runningApplications, platform.screens,
                   platform.runLoop) {
    dockActions_ = makeDockActions();
}

void AppDelegate::applicationDidFinishLaunching() {
    DevLog::write("Vireline started pid=" +
                  std::to_string(platform_.application.processIdentifier()));
    makeStatusItem();
    seedModel();
    connect();
    resolver_.start();
    monitor_.start();
    coordinator_.start();
    signals_.start();
    if (!store_.settings().onboardingCompleted)
        showOnboarding();
    secondStarts_ =
        platform_.application.observeSecondStart(lifetime_.guard([this] { showSettings(); }));
}

void AppDelegate::makeStatusItem() {
    statusItem_.emplace(platform_.statusBar, platform_.application, loginItem_,
                        lifetime_.guard([this] { showSettings(); }),
                        lifetime_.guard([this] { showOnboarding(); }));
}

void AppDelegate::showSettings() {
    if (!settingsWindow_)
        settingsWindow_.emplace(store_, loginItem_, anchorGuard_, platform_);
    settingsWindow_->show();
}

void AppDelegate::showOnboarding() {
    if (!onboarding_)
        onboarding_.emplace(store_, anchorGuard_, platform_);
    onboarding_->show();
}

void AppDelegate::connect() {
    coordinator_.onGuardZonesChanged =
        lifetime_.guard([this](const std::vector<Rect>& zones) { anchorGuard_.setZones(zones); });
    coordinator_.onDisplayFramesChanged = lifetime_.guard(
        [this](const std::vector<Rect>& frames) { anchorGuard_.setDisplays(frames); });
    applyAnchorSetting();
    activator_.windowMover = &windowMover_;
    activator_.settings =
        lifetime_.guardOr(Settings{}, [this]() -> const Settings& { return store_.settings(); });
    coordinator_.dockConfig = lifetime_.guardOr(DisplayCoordinator::DockConfig{}, [this] {
        const Settings& settings = store_.settings();
        return DisplayCoordinator::DockConfig{settings.position, settings.autoHide};
    });
    model_.onLayoutChange = lifetime_.guard([this] { coordinator_.reconcile(); });
    store_.onChange = lifetime_.guard([this] { settingsChanged(); });
    resolver_.onChange =
        lifetime_.guard([this](const std::vector<AppRef>& pinned) { pinnedListChanged(pinned); });
    monitor_.onChange =
        lifetime_.guard([this](const std::vector<AppRef>& running) { showTiles(running); });
    monitor_.onLaunching = lifetime_.guard([this](const std::string& bundleID) {
        auto launching = model_.launching.get();
        launching.insert(bundleID);
        model_.launching.set(std::move(launching));
    });
    monitor_.onSettled = lifetime_.guard([this](const std::string& bundleID) {
        auto launching = model_.launching.get();
        launching.erase(bundleID);
        model_.launching.set(std::move(launching));
    });
}

void AppDelegate::seedModel() {
    model_.configuredIconSize.set(store_.settings().iconSize);
    model_.magnification.set(effectiveMagnification(store_.settings()));
}

void AppDelegate::applyAnchorSetting() {
    if (store_.settings().anchorAppleDock)
        anchorGuard_.enable();
    else
        anchorGuard_.disable();
}

void AppDelegate::settingsChanged() {
    seedModel();
    applyAnchorSetting();
    resolver_.emit();
    coordinator_.reconcile();
}

void AppDelegate::pinnedListChanged(const std::vector<AppRef>& pinned) {
    pinned_ = pinned;
    showTiles(monitor_.current());
}

void AppDelegate::showTiles(std::span<const AppRef> running) {
    // A dock's length depends on the number of tiles, and on whether there is a separator before
    // the unpinned ones.
    const auto lengths = [this] {
        const auto& items = model_.items.get();
        return std::pair{items.size(), std::ranges::all_of(items, &DockItem::isPinned)};
    };
    const auto before = lengths();
    model_.items.set(DockOrdering::merge(pinned_, running));
    if (lengths() != before)
        model_.onLayoutChange();
}

DockViewContext AppDelegate::makeViewContext() {
    return {model_,
            icons_,
            dockActions_,
            platform_.runLoop,
            platform_.pointerSettings,
            platform_.motionSettings,
            trashService_,
            platform_.words,
            demoCursor()};
}

DockActions AppDelegate::makeDockActions() {
    DockActions actions;
    actions.leftClick = lifetime_.guard([this](const DockItem& item, std::uint32_t display) {
        activator_.leftClick(item, display);
    });
    actions.doubleClick = lifetime_.guard([this](const DockItem& item, std::uint32_t display) {
        activator_.doubleClick(item, display);
    });
    actions.menuSelect =
        lifetime_.guard([this](MenuEntry entry, const DockItem& item, std::uint32_t display) {
            if (entry == MenuEntry::removeFromDock) {
                resolver_.removeManualApp(item.id);
            } else {
                activator_.menuSelect(entry, item, display);
            }
        });
    actions.windows = lifetime_.guardOr(std::vector<OpenWindow>{}, [this](const DockItem& item) {
        return activator_.windows(item);
    });
    actions.showWindow = lifetime_.guard(
        [this](const OpenWindow& window, const DockItem& item, std::uint32_t display) {
            activator_.showWindow(window, item, display);
        });
    actions.appActions =
        lifetime_.guardOr(std::vector<ApplicationCatalog::Action>{},
                          [this](const DockItem& item) { return activator_.actions(item); });
    actions.performAction =
        lifetime_.guard([this](const std::string& action, const DockItem& item) {
            activator_.perform(action, item);
        });
    actions.middleClick = lifetime_.guard([this](const DockItem& item, std::uint32_t display) {
        activator_.middleClick(item, display);
    });
    actions.addApp = lifetime_.guard([this](const FileURL& url) { resolver_.addManualApp(url); });
    actions.moveApp = lifetime_.guard([this](const std::string& bundleID, int toIndex) {
        resolver_.moveManualApp(bundleID, toIndex);
    });
    actions.isManualMode = lifetime_.guardOr(
        false, [this] { return store_.settings().sourceMode == SourceMode::manual; });
    actions.undoTitle =
        lifetime_.guardOr(std::optional<std::string>{}, [this] { return resolver_.undoTitle(); });
    actions.undo = lifetime_.guard([this] { resolver_.undo(); });
    actions.openFolder = lifetime_.guard([this](const FileURL& url) {
        platform_.workspace.open(url);
        DevLog::write("open folder " + url.lastPathComponent());
    });
    actions.trashFiles =
        lifetime_.guard([this](const std::vector<FileURL>& urls) { trashService_.trash(urls); });
    actions.showSettings = lifetime_.guard([this] { showSettings(); });
    actions.hasStatusItem =
        lifetime_.guardOr(true, [this] { return statusItem_ && statusItem_->hasPlace(); });
    actions.quit = lifetime_.guard([this] {
        DevLog::write("quit from dock");
        platform_.application.terminate();
    });
    return actions;
}

}
