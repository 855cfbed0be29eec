/// What a dock's view needs around it, on the fake platform, with its actions recorded.
#pragma once

#include "Interaction/DockActions.hpp"
#include "Interaction/TrashService.hpp"
#include "Model/DockViewModel.hpp"
#include "Sources/IconStore.hpp"
#include "Support/FakePlatform.hpp"
#include "Views/DockRootView.hpp"

#include <string>
#include <vector>

namespace vireline::test {

struct DockFixture {
    FakePlatform platform;
    DockViewModel model;
    IconStore icons{platform.icons};
    TrashService trash{platform.trash, platform.userFolders, platform.runLoop};
    /// One line for every action, such as "click a.b #2".
    std::vector<std::string> actionsTaken;
    bool manualMode = false;
    DockActions actions = recordingActions();

    DockFixture();

    [[nodiscard]] DockViewContext context();

    /// Puts `pinned` and `unpinned` app tiles into the model, named "p0" … and "u0" ….
    void setTiles(int pinned, int unpinned);

private:
    [[nodiscard]] DockActions recordingActions();
};

/// An app tile; pinned ones do not run, unpinned ones do.
[[nodiscard]] DockItem tileItem(const std::string& id, bool isPinned, bool isRunning);

/// A display at a place of its own, without a dock on it.
[[nodiscard]] PlatformScreen screenAt(std::uint32_t number, const Rect& frame);

/// The same with the desktop's own dock at its bottom.
[[nodiscard]] PlatformScreen screenWithDock(std::uint32_t number, const Rect& frame);

}
