/// One dock on one display: its window, and auto-hide, which shrinks the window to a sliver at the
/// display's edge after the pointer has left. Owned by the display coordinator.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Layout/PanelPlanner.hpp"
#include "Platform/PanelWindow.hpp"
#include "Views/Contents/Animator.hpp"
#include "Views/Contents/PanelUIState.hpp"
#include "Views/DockRootView.hpp"

#include <memory>

namespace vireline {

class DockPanel : private PanelWindowListener, private NonCopyable {
public:
    /// Hidden until `orderFrontRegardless`. An auto-hiding panel starts collapsed.
    DockPanel(const PanelSpec& spec, bool autoHide, const DockViewContext& context,
              PanelWindows& windows);
    ~DockPanel() override;

    [[nodiscard]] const PanelSpec& spec() const noexcept { return spec_; }
    [[nodiscard]] bool collapsed() const noexcept { return uiState_.collapsed.get(); }

    void orderFrontRegardless();

    /// Applies a new plan and the auto-hide setting. A collapsed panel moves without expanding.
    /// When auto-hide is switched off, the panel expands immediately; when it is switched on, the
    /// panel collapses after the usual delay, unless something holds it open.
    void update(const PanelSpec& spec, bool autoHide);

    /// Collapses to the sliver, or expands to the frame that reaches the display's edge.
    void applyCollapsed(bool collapsed, bool animate);

    /// Hides the dock for good. Events that its window still reports are ignored.
    void retire();

private:
    void mouseEntered() override;
    void mouseExited() override;
    void frameDue() override { showFrame(); }
    void pointerEvent(const PointerEvent& event) override;
    void dragEntered(const std::vector<std::string>& urls) override;
    bool dragMoved(Point at) override;
    void dragExited() override;
    bool dropped(Point at) override;
    [[nodiscard]] std::vector<AccessibleTile> accessibleTiles() override;
    void pressTile(std::uint32_t id) override;
    void showTileMenu(std::uint32_t id) override;

    /// Where the window belongs in the current state.
    [[nodiscard]] Rect windowFrame() const;
    void placeWindow(bool animate);
    void pinHosting();
    void popUpMenu(const Menu& menu, const MenuPlace& place);

    /// Expands a collapsed panel, or cancels a pending collapse.
    void expand();
    /// Collapses after a delay, unless something holds the panel open.
    void collapseLater();
    [[nodiscard]] bool isHeldOpen() const noexcept;

    /// Polls the button during a press, whose release may go to another program.
    void watchPress(PointerEvent::Kind kind);

    void sceneInvalidated();
    void showFrame();

    PanelSpec spec_;
    bool autoHide_;
    RunLoop& runLoop_;
    const MotionSettings& motionSettings_;
    Timer collapseTimer_;
    Timer pressWatch_;
    /// Until the next frame of an animation in which nothing moves.
    Timer fadeTimer_;
    bool isRetired_ = false;
    /// What holds an auto-hiding panel open.
    bool isPointerOver_ = false;
    int openMenus_ = 0;
    bool isTileDragged_ = false;
    bool isDragOver_ = false;

    PanelUIState uiState_;
    DockRootView hosting_;
    Animator animator_;
    std::unique_ptr<PanelWindow> window_;
    /// The overhang that the window was last given.
    Overhang overhang_;
    bool sceneIsStale_ = true;
    Lifetime lifetime_;
};

}
