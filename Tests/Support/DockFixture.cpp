#include "Support/DockFixture.hpp"

namespace vireline::test {

DockFixture::DockFixture() {
    platform.userFolders.downloadsFolder = FileURL::fromPath("/home/me/Downloads");
    platform.userFolders.trashFolder = FileURL::fromPath("/home/me/Trash");
}

DockViewContext DockFixture::context() {
    return {model,
            icons,
            actions,
            platform.runLoop,
            platform.pointerSettings,
            platform.motionSettings,
            trash,
            platform.words,
            std::nullopt};
}

void DockFixture::setTiles(int pinned, int unpinned) {
    std::vector<DockItem> items;
    items.reserve(static_cast<std::size_t>(pinned) + static_cast<std::size_t>(unpinned));
    for (int i = 0; i < pinned; ++i)
        items.push_back(tileItem("p" + std::to_string(i), true, false));
    for (int i = 0; i < unpinned; ++i)
        items.push_back(tileItem("u" + std::to_string(i), false, true));
    model.items.set(std::move(items));
}

DockActions DockFixture::recordingActions() {
    const auto record = [this](std::string line) { actionsTaken.push_back(std::move(line)); };
    DockActions recording;
    recording.leftClick = [=](const DockItem& item, std::uint32_t display) {
        record("click " + item.id + " #" + std::to_string(display));
    };
    recording.doubleClick = [=](const DockItem& item, std::uint32_t display) {
        record("double-click " + item.id + " #" + std::to_string(display));
    };
    recording.menuSelect = [=, this](MenuEntry entry, const DockItem& item, std::uint32_t display) {
        record("menu " + title(entry, platform.words) + " " + item.id + " #" +
               std::to_string(display));
    };
    recording.windows = [this](const DockItem&) { return windows; };
    recording.showWindow = [=](const OpenWindow& window, const DockItem& item,
                               std::uint32_t display) {
        record("window " + window.title + " of " + item.id + " #" + std::to_string(display));
    };
    recording.appActions = [this](const DockItem&) { return appActions; };
    recording.performAction = [=](const std::string& action, const DockItem& item) {
        record("action " + action + " of " + item.id);
    };
    recording.middleClick = [=](const DockItem& item, std::uint32_t display) {
        record("middle-click " + item.id + " #" + std::to_string(display));
    };
    recording.addApp = [=](const FileURL& url) { record("add " + url.path()); };
    recording.moveApp = [=](const std::string& bundleID, int toIndex) {
        record("move " + bundleID + " " + std::to_string(toIndex));
    };
    recording.isManualMode = [this] { return manualMode; };
    recording.undoTitle = [this] { return undoTitle; };
    recording.undo = [=] { record("undo"); };
    recording.openFolder = [=](const FileURL& url) { record("open " + url.path()); };
    recording.trashFiles = [=](const std::vector<FileURL>& urls) {
        record("trash " + std::to_string(urls.size()));
    };
    recording.showSettings = [=] { record("settings"); };
    recording.hasStatusItem = [this] { return platform.statusBar.hasPlace; };
    recording.quit = [=] { record("quit"); };
    return recording;
}

DockItem tileItem(const std::string& id, bool isPinned, bool isRunning) {
    return {id, "App " + id, FileURL::fromPath("/Applications/" + id), isPinned, isRunning};
}

PlatformScreen screenAt(std::uint32_t number, const Rect& frame) {
    return {number, number, frame, frame, 1};
}

PlatformScreen screenWithDock(std::uint32_t number, const Rect& frame) {
    constexpr double dockHeight = 70;
    PlatformScreen screen = screenAt(number, frame);
    screen.visibleFrame.y += dockHeight;
    screen.visibleFrame.height -= dockHeight;
    return screen;
}

}
