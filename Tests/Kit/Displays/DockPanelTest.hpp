/// One dock on display 7, on the fake platform.
#pragma once

#include "Displays/DockPanel.hpp"
#include "Kit/Displays/DockPanelSpecs.hpp"
#include "Support/DockFixture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace vireline::test {

class DockPanelTest : public testing::Test {
protected:
    DockPanel& show(const PanelSpec& spec, bool autoHide) {
        panel_ =
            std::make_unique<DockPanel>(spec, autoHide, dock.context(), dock.platform.panelWindows);
        return *panel_;
    }

    [[nodiscard]] FakePanel& window() const { return dock.platform.panelWindows.panel(7); }
    /// What the display shows once all animations are done; no virtual time passes.
    [[nodiscard]] const Scene& scene() const {
        window().nextFrame();
        return *window().scene;
    }
    void advance(double seconds) { dock.platform.runLoop.advance(seconds); }
    [[nodiscard]] bool showsHandle() const {
        return scene().nodes.back().id.part == NodeID::Part::handle;
    }

    [[nodiscard]] Point firstIconCenter() const {
        const Scene shown = scene();
        const auto isIcon = [](const SceneNode& node) {
            return node.id.part == NodeID::Part::icon;
        };
        return std::ranges::find_if(shown.nodes, isIcon)->frame.center();
    }

    test::DockFixture dock;

private:
    std::unique_ptr<DockPanel> panel_;
};

}
