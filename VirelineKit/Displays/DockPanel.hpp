/// The window that carries one dock on one display: never focused, above others, and, with
/// auto-hide on, shrinking to a sliver at the display's edge after the pointer has left. Created,
/// moved and destroyed by the display coordinator.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Layout/PanelPlanner.hpp"
#include "Platform/PanelWindow.hpp"
#include "Views/Animator.hpp"
#include "Views/DockRootView.hpp"
#include "Views/PanelUIState.hpp"

#include <memory>

namespace vireline {

class DockPanel : private PanelWindowListener {
public:
    /// Not shown before `orderFrontRegardless`. An auto-hiding panel starts as a sliver.
    DockPanel(const PanelSpec& spec, bool autoHide, const DockViewContext& context,
              PanelWindows& windows);
    ~DockPanel() override;
    DockPanel(const DockPanel&) = delete;
    DockPanel& operator=(const DockPanel&) = delete;
    DockPanel(DockPanel&&) = delete;
    DockPanel& operator=(DockPanel&&) = delete;

    [[nodiscard]] const PanelSpec& spec() const noexcept { return spec_; }
    [[nodiscard]] bool collapsed() const noexcept { return collapsed_; }

    void orderFrontRegardless();

    /// Takes over a new plan and the auto-hide setting. A collapsed panel moves as a sliver; one
    /// that no longer hides expands at once, and one that hides from now on collapses as if the
    /// pointer had just left it, unless it is there.
    void update(const PanelSpec& spec, bool autoHide);

    /// Collapses to the sliver, or expands to the frame that reaches the display's edge.
    void applyCollapsed(bool collapsed, bool animate);

    /// Takes the dock off its display for good: nothing that its window still reports counts.
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

    void setCollapsed(bool collapsed);
    /// Where the window belongs as things are now.
    [[nodiscard]] Rect windowFrame() const;
    void placeWindow(bool animate);
    void pinHosting();
    void popUpMenu(const Menu& menu, const MenuPlace& place);

    /// Opens a collapsed panel, or keeps an open one from collapsing.
    void comeOut();
    /// Collapses after a while, unless something holds the panel open.
    void collapseLater();
    [[nodiscard]] bool isHeldOpen() const noexcept;

    /// Makes sure that a press ends for the dock as well when its release goes elsewhere.
    void watchPress(PointerEvent::Kind kind);

    void sceneInvalidated();
    void showFrame();

    PanelSpec spec_;
    bool autoHide_;
    bool collapsed_ = false;
    RunLoop& runLoop_;
    const MotionSettings& motionSettings_;
    Timer collapseTimer_;
    Timer pressWatch_;
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
    /// As the window was given it.
    Overhang overhang_;
    bool sceneIsStale_ = true;
    Lifetime lifetime_;
};

}
