/// The menus of docks.
#include "Storm/World.hpp"

#include <algorithm>

namespace vireline::storm {
namespace {

/// The first characters of a long title and its last ones, with an ellipsis in between. The storm's
/// titles are of ASCII characters.
std::string titleInMenu(const ModelWindow& window, const DockItem& item) {
    constexpr std::size_t most = 48;
    std::string title = window.title;
    std::ranges::replace(title, '\n', ' ');
    title.erase(0, std::min(title.size(), title.find_first_not_of(' ')));
    title.erase(title.find_last_not_of(' ') + 1);
    if (title.empty())
        title = item.name;
    if (title.size() > most)
        title = title.substr(0, most / 2) + "…" + title.substr(title.size() - (most / 2 - 1));
    return title + (window.isActive ? " *" : "");
}

/// The entries of an app's menu from the top to what every app has.
std::vector<std::string> firstTitles(const Model& model, const DockItem& item,
                                     const std::vector<ModelWindow>& windows) {
    constexpr std::size_t listed = 10;
    std::vector<std::string> titles;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (i == listed)
            titles.emplace_back("More…");
        titles.push_back((i < listed ? "" : "> ") + titleInMenu(windows[i], item));
    }
    if (!windows.empty())
        titles.emplace_back("-");
    const auto actions = model.actionsOf(item);
    for (const ApplicationCatalog::Action& action : actions)
        titles.push_back(action.name);
    if (!actions.empty())
        titles.emplace_back("-");
    return titles;
}

}

void World::expectMenuOf(std::optional<std::size_t> tile) {
    menuItem_.reset();
    menuWindows_.clear();
    menuTitles_.clear();
    if (!tile || *tile >= model.items.size())
        return;
    menuItem_ = model.items[*tile];
    const auto windows = model.windowsOf(*menuItem_);
    for (const ModelWindow& window : windows)
        menuWindows_.push_back(window.number);
    menuTitles_ = firstTitles(model, *menuItem_, windows);
}

void World::menuOpened(StormWindow& window) {
    model.menuOpened(window.id);
    window.menuItem = menuItem_;
    window.menuWindows = menuWindows_;
    std::vector<std::string> expected{"Settings…", "Quit Vireline"};
    if (!model.edits.empty())
        expected.insert(expected.begin(), {model.edits.back().title, "-"});
    if (menuItem_) {
        expected = menuTitles_;
        expected.insert(expected.end(), {menuItem_->isRunning ? "Show" : "Open", "Show in Finder"});
        if (model.isManual() && menuItem_->isPinned)
            expected.emplace_back("Remove from Dock");
        if (menuItem_->isRunning)
            expected.emplace_back("Quit");
    }
    const auto lines = linesOf(window.menu);
    for (std::size_t i = 0; i < std::max(lines.size(), expected.size()); ++i) {
        const std::string shown = i < lines.size() ? lines[i].title : "nothing";
        const std::string right = i < expected.size() ? expected[i] : "nothing";
        if (shown != right)
            return fail("line ", i, " of a menu is \"", shown, "\" instead of \"", right, '"');
    }
}

void World::menuClosed(StormWindow& window, std::optional<std::size_t> chosen) {
    model.menuClosed(window.id);
    if (!chosen)
        return;
    const auto lines = linesOf(window.menu);
    const std::string& title = lines.at(*chosen).title;
    // The number of commands above it.
    const auto place = static_cast<std::size_t>(
        std::ranges::count_if(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(*chosen),
                              [](const MenuLine& line) { return line.isCommand; }));
    if (window.menuItem && place < window.menuWindows.size())
        model.windowChosen(*window.menuItem, window.menuWindows[place]);
    else if (window.menuItem)
        model.chosen(*window.menuItem, window.id.display, title);
    else if (title.starts_with("Undo "))
        model.undo();
    else if (title == "Quit Vireline")
        model.lines.emplace_back("quit from dock");
}

}
