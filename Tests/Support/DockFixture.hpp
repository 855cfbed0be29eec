/// The environment that a dock's view needs, on the fake platform, with its actions recorded.
#pragma once

#include "Interaction/DockActions.hpp"
#include "Interaction/TrashService.hpp"
#include "Model/DockViewModel.hpp"
#include "Sources/IconStore.hpp"
#include "Support/FakePlatform.hpp"
#include "Views/DockRootView.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::test {

struct DockFixture {
    FakePlatform platform;
    DockViewModel model;
    IconStore icons{platform.icons};
    TrashService trash{platform.trash, platform.userFolders, platform.runLoop};
    /// One line per action, such as "click a.b #2".
    std::vector<std::string> actionsTaken;
    bool manualMode = false;
    std::optional<std::string> undoTitle;
    /// Open windows, the same for every app.
    std::vector<OpenWindow> windows;
    std::vector<ApplicationCatalog::Action> appActions;
    DockActions actions = recordingActions();

    DockFixture();

    [[nodiscard]] DockViewContext context();

    /// Fills the model with app tiles, the pinned ones named "p0", "p1" and so on, the unpinned
    /// ones "u0", "u1" and so on.
    void setTiles(int pinned, int unpinned);

private:
    [[nodiscard]] DockActions recordingActions();
};

/// An app tile; pinned ones are not running, unpinned ones are.
[[nodiscard]] DockItem tileItem(const std::string& id, bool isPinned, bool isRunning);

/// A display without the desktop's own dock.
[[nodiscard]] PlatformScreen screenAt(std::uint32_t number, const Rect& frame);

/// As above, but with the desktop's own dock at the bottom.
[[nodiscard]] PlatformScreen screenWithDock(std::uint32_t number, const Rect& frame);

}
