/// The window of one dock on Wayland: a layer surface on a connection of our own. For Qt it is a
/// window without a surface, by which assistive technology finds the dock.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Input/SurfaceInput.hpp"
#include "Painting/Pixels/ViewMapping.hpp"
#include "Panels/Accessible/AccessibleDock.hpp"
#include "Panels/Menus/DockMenu.hpp"
#include "Panels/Picture/LayerPicture.hpp"
#include "Panels/Surfaces/DockSurface.hpp"
#include "Panels/Surfaces/InvisibleSurface.hpp"
#include "Platform/PanelWindow.hpp"
#include "Toolkit/PopUpMenu.hpp"
#include "Views/Input/PointerTracker.hpp"

#include <QTimer>
#include <QWindow>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

class DockContext;
class Output;

class LayerPanelWindow final : public QWindow, public PanelWindow, public SurfaceInput {
public:
    LayerPanelWindow(DockContext& context, std::uint32_t displayID, const Rect& frame,
                     PanelWindowListener& listener);
    ~LayerPanelWindow() override;

    void setOverhang(const Overhang& overhang) override { nextOverhang_ = overhang; }
    void setFrame(const Rect& frame, bool animate) override;
    void setHostedFrame(const Rect& frame) override;
    void present(const Scene& scene) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void requestFrame() override;
    void watchForCancel(bool watches) override;
    void checkPress() override;
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override;

    [[nodiscard]] QAccessibleInterface* accessibleRoot() const override;

private:
    [[nodiscard]] double pixelsPerPoint() const override { return mapping_.scale; }
    [[nodiscard]] bool followsPointer() const override {
        return scene_.followsPointer || tracker_.isPressed();
    }
    void pointerEntered(QPointF at) override;
    void pointerMoved(QPointF at) override;
    void pointerLeft() override;
    void buttonPressed(PointerButton button) override;
    void buttonReleased(PointerButton button) override;
    void dragEntered(const std::vector<std::string>& urls) override;
    [[nodiscard]] bool dragMoved(QPointF at) override;
    void dragLeft() override;
    [[nodiscard]] bool dragDropped(QPointF at) override;

    void makeSurface();
    void removeSurface();
    void configured();
    void closedByCompositor();
    void displaysChanged();
    void lookChanged();
    void openMenu(QMenu& menu, QScreen& screen, const MenuPlace& place);
    void keyPressed(const QKeyEvent& event);
    void requestTick();
    void frameDue();
    void showFrame();
    void deliverMove();
    void updateSoon();
    void update();
    void relayout();

    [[nodiscard]] const Output* output() const;
    /// Converts from global coordinates to those relative to the display.
    [[nodiscard]] QRectF onDisplay(const Rect& global) const;
    /// The frame including its overhang, relative to the display.
    [[nodiscard]] QRectF extent() const;
    /// The surface in Qt's screen coordinates.
    [[nodiscard]] QRect placeInQt() const;
    /// Converts a position on the surface to the view's coordinates.
    [[nodiscard]] Point viewPosition(QPointF position) const;
    [[nodiscard]] PointerTracker::PointerState pointerState() const;
    /// Converts a part of the view to Qt's screen coordinates.
    [[nodiscard]] QRect placeOnScreen(const Rect& view) const;

    DockContext& context_;
    std::uint32_t displayID_;
    PanelWindowListener& listener_;
    PointerTracker tracker_;
    /// The planned frame, relative to its display's top-left corner, y downwards. A display that
    /// moves takes its dock along, without waiting for a new plan.
    QRectF frame_;
    Rect hostedFrame_;
    /// The overhang of the current frame, and that of future frames.
    Overhang overhang_;
    Overhang nextOverhang_;
    /// While it shrinks with an animation, the surface keeps its previous extent.
    std::optional<QRectF> extentBefore_;
    /// The surface, relative to the display.
    QRect place_;
    xdg::ViewMapping mapping_;
    Scene scene_;
    bool isWanted_ = false;
    bool updateIsDue_ = false;
    bool isFrameAsked_ = false;
    bool isInFrame_ = false;
    bool tickIsDue_ = false;
    /// The last place of the pointer on the surface, whether it is there, and whether the primary
    /// button is held.
    QPointF pointer_;
    bool isPointerOver_ = false;
    bool isButtonHeld_ = false;
    bool moveIsDue_ = false;
    /// Paces frames while there is no surface.
    QTimer hiddenFrames_;
    std::unique_ptr<DockSurface> surface_;
    /// Null before the compositor is ready for the surface's content.
    std::unique_ptr<LayerPicture> picture_;
    std::unique_ptr<xdg::PopUpMenu> menu_;
    std::unique_ptr<DockMenu> openMenu_;
    /// Gets the keys during a drag.
    InvisibleSurface::Retiring keys_;
    std::unique_ptr<xdg::AccessibleDock> accessible_;
    std::vector<Subscription> subscriptions_;
    Lifetime lifetime_;
};

}
