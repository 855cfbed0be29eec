/// Other programs' windows, as the menus of tiles list them, and what an app offers there.
#include "Storm/Model.hpp"

#include <algorithm>
#include <iterator>

namespace vireline::storm {

/// A new window is active.
void Model::windowOpened(const RunningApplication& app, const std::string& title,
                         test::FakeWindow& actual) {
    windows.push_back({.number = ++windowsOpened_,
                       .bundleID = app.bundleID.value_or(""),
                       .title = title,
                       .lastActive = ++activations_,
                       .actual = &actual});
}

void Model::windowClosed(int number) {
    std::erase_if(windows, [=](const ModelWindow& window) { return window.number == number; });
}

/// Empty without the permission, or if the app does not run.
std::vector<ModelWindow> Model::windowsOf(const DockItem& item) const {
    const auto& platform = around_.platform;
    std::vector<ModelWindow> its;
    if (!platform.accessibility.trusted || platform.running.instances(item.id).empty())
        return its;
    std::ranges::copy_if(windows, std::back_inserter(its),
                         [&](const ModelWindow& window) { return window.bundleID == item.id; });
    std::ranges::sort(its, [](const ModelWindow& a, const ModelWindow& b) {
        return a.lastActive > b.lastActive;
    });
    for (ModelWindow& window : its)
        window.isActive = window.lastActive == activations_ && !window.isHidden;
    return its;
}

void Model::windowChosen(const DockItem& item, int number) {
    if (around_.platform.running.instances(item.id).empty())
        return;
    const auto window = std::ranges::find(windows, number, &ModelWindow::number);
    if (window == windows.end()) {
        line("window not shown: *");
    } else {
        window->isHidden = false;
        windowActivated(*window);
    }
    line("menu window " + item.id);
}

std::vector<ApplicationCatalog::Action> Model::actionsOf(const DockItem& item) const {
    return around_.platform.catalog.actions(item.url);
}

void Model::middleClicked(const DockItem& item) {
    const bool isRunning = !around_.platform.running.instances(item.id).empty();
    line((isRunning ? "middle click new window " : "click launch ") + item.id);
}

}
