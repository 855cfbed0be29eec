#include "Interaction/AppActivator.hpp"

#include "ClientWindows/WindowMover.hpp"
#include "Foundation/DevLog.hpp"
#include "Interaction/NewWindow.hpp"
#include "Layout/ScreenSnapshot.hpp"

#include <string>

namespace vireline {

void AppActivator::leftClick(const DockItem& item, std::uint32_t display) {
    const auto instances = applications_.instances(item.id);
    const bool isRunning = !instances.empty();
    const bool summonEnabled = windowMover != nullptr && settings().summonOnClick;
    const auto screens = ScreenSnapshot::current(screens_);
    const ClickPolicy::AppState state{
        .isRunning = isRunning,
        .isFrontmost = isRunning && instances.front().isActive,
        .hasWindowHere = isRunning && summonEnabled &&
                         windowMover->appHasWindow(instances.front(), display, screens)};
    switch (ClickPolicy::decide(state, summonEnabled)) {
    case ClickAction::launch:
        launch(item, display);
        break;
    case ClickAction::activate:
        open(item, "click reopen " + item.id);
        break;
    case ClickAction::hide: {
        const std::string line = "click hide " + item.id;
        applications_.hide(instances.front());
        DevLog::write(line);
        break;
    }
    case ClickAction::summon:
        if (windowMover != nullptr)
            windowMover->summonMainWindow(instances.front(), display, screens);
        open(item, "click summon " + item.id + " on #" + std::to_string(display));
        break;
    }
}

void AppActivator::launch(const DockItem& item, std::uint32_t display) {
    // Copied, because `item` may be gone once the app has been opened.
    const std::string bundleID = item.id;
    workspace_.openApplication(bundleID, item.url);
    if (windowMover != nullptr && settings().openOnThisDisplay)
        windowMover->expect(bundleID, display, WindowMover::Center{});
    DevLog::write("click launch " + bundleID);
}

bool AppActivator::canFill() const {
    return windowMover != nullptr && settings().fillOnDoubleClick && accessibility_.isTrusted();
}

void AppActivator::doubleClick(const DockItem& item, std::uint32_t display) {
    if (!canFill()) {
        leftClick(item, display);
        return;
    }
    const std::string bundleID = item.id;
    workspace_.openApplication(bundleID, item.url);
    const Settings current = settings();
    windowMover->expect(bundleID, display,
                        FillContext{.position = current.position,
                                    .dockReserved = !current.autoHide,
                                    .magnification = effectiveMagnification(current),
                                    .configuredIconSize = current.iconSize});
    DevLog::write("double-click fill " + bundleID + " on #" + std::to_string(display));
}

std::vector<OpenWindow> AppActivator::windows(const DockItem& item) const {
    const auto instances = applications_.instances(item.id);
    if (windowMover == nullptr || instances.empty())
        return {};
    return windowMover->openWindows(instances.front());
}

void AppActivator::showWindow(const OpenWindow& window, const DockItem& item,
                              std::uint32_t display) {
    const auto instances = applications_.instances(item.id);
    if (windowMover == nullptr || instances.empty())
        return;
    const std::string line = "menu window " + item.id;
    windowMover->showWindow(instances.front(), window, display, ScreenSnapshot::current(screens_),
                            settings().summonOnClick);
    DevLog::write(line);
}

void AppActivator::perform(const std::string& actionID, const DockItem& item) {
    const std::string line = "menu action " + actionID + " of " + item.id;
    workspace_.perform(item.id, item.url, actionID);
    DevLog::write(line);
}

void AppActivator::middleClick(const DockItem& item, std::uint32_t display) {
    if (applications_.instances(item.id).empty())
        return launch(item, display);
    const std::string line = "middle click new window " + item.id;
    if (const auto action = NewWindow::action(actions(item)))
        workspace_.perform(item.id, item.url, *action);
    else
        workspace_.launchAgain(item.id, item.url);
    DevLog::write(line);
}

void AppActivator::menuSelect(MenuEntry entry, const DockItem& item, std::uint32_t display) {
    switch (entry) {
    case MenuEntry::open:
    case MenuEntry::show:
        leftClick(item, display);
        break;
    case MenuEntry::showInFinder: {
        const std::string line = "menu show-in-finder " + item.id;
        workspace_.reveal({item.url});
        DevLog::write(line);
        break;
    }
    case MenuEntry::removeFromDock:
        DevLog::write("removeFromDock reached AppActivator, wiring error");
        break;
    case MenuEntry::quit: {
        const std::string line = "menu quit " + item.id;
        if (const auto instances = applications_.instances(item.id); !instances.empty())
            applications_.terminate(instances.front());
        DevLog::write(line);
        break;
    }
    }
}

void AppActivator::open(const DockItem& item, const std::string& logLine) {
    workspace_.openApplication(item.id, item.url);
    DevLog::write(logLine);
}

}
