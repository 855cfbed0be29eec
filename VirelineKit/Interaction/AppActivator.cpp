#include "Interaction/AppActivator.hpp"

#include "App/DevLog.hpp"

namespace vireline {

void AppActivator::leftClick(const DockItem& item, std::uint32_t /*display*/) {
    const auto instances = applications_.instances(item.id);
    const bool isRunning = !instances.empty();
    const ClickPolicy::AppState state{.isRunning = isRunning,
                                      .isFrontmost = isRunning && instances.front().isActive,
                                      .hasWindowHere = false};
    switch (ClickPolicy::decide(state, /*summonEnabled=*/false)) {
    case ClickAction::launch:
        open(item, "click launch " + item.id);
        break;
    case ClickAction::hide: {
        const std::string line = "click hide " + item.id;
        applications_.hide(instances.front());
        DevLog::write(line);
        break;
    }
    case ClickAction::activate:
    case ClickAction::summon:
        open(item, "click reopen " + item.id);
        break;
    }
}

void AppActivator::doubleClick(const DockItem& item, std::uint32_t display) {
    leftClick(item, display);
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
