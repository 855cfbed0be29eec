/// A fixture with one dock's view on the fake platform, and access to its nodes.
#pragma once

#include "Support/DockFixture.hpp"
#include "Views/DockRootView.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline::test {

using Kind = PointerEvent::Kind;

/// "-" for a separator.
[[nodiscard]] inline std::string titleOf(const MenuItem& entry) {
    if (const auto* const submenu = std::get_if<MenuSubmenu>(&entry))
        return submenu->title;
    const auto* const command = std::get_if<MenuCommand>(&entry);
    return command == nullptr ? "-" : command->title;
}

/// A dock on display 2 that is wide enough for its tiles at full size.
class DockRootViewTest : public testing::Test {
protected:
    void show(DockPosition position = DockPosition::bottom, double length = 1000,
              double thickness = 84) {
        const bool isBottom = position == DockPosition::bottom;
        const Size size = isBottom ? Size{length, thickness} : Size{thickness, length};
        const PanelSpec spec{2, {0, 4, size.width, size.height}, length, position};
        view_ = std::make_unique<DockRootView>(context, ui, spec, false);
        view_->onMenuRequest = [this](const Menu& requested, const MenuPlace& place) {
            menu = requested;
            menuPlace = place;
            for (const MenuItem& entry : menu.entries)
                menuTitles.push_back(titleOf(entry));
        };
    }

    [[nodiscard]] DockRootView& view() const { return *view_; }
    void send(Kind kind, Point p = {}) { view_->pointerEvent({kind, p}); }
    void tapAt(Point p) {
        send(Kind::pressed, p);
        send(Kind::released, p);
    }

    void choose(std::size_t index) const { std::get<MenuCommand>(menu.entries.at(index)).action(); }

    [[nodiscard]] std::vector<SceneNode> nodes(NodeID::Part part) const {
        std::vector<SceneNode> found;
        const Scene scene = view_->makeScene();
        std::ranges::copy_if(scene.nodes, std::back_inserter(found),
                             [=](const SceneNode& node) { return node.id.part == part; });
        return found;
    }
    [[nodiscard]] std::vector<SceneNode> icons() const { return nodes(NodeID::Part::icon); }
    [[nodiscard]] Point centerOfIcon(std::size_t index) const {
        return icons().at(index).frame.center();
    }
    [[nodiscard]] std::string labelText() const {
        const auto labels = nodes(NodeID::Part::label);
        return labels.empty() ? "" : std::get<LabelNode>(labels.front().content).text;
    }

    DockFixture dock;
    PanelUIState ui;
    DockViewContext context = dock.context();
    Menu menu;
    /// The titles of all requested menus.
    std::vector<std::string> menuTitles;
    MenuPlace menuPlace;

private:
    std::unique_ptr<DockRootView> view_;
};

}
