/// The window of one dock on an X server. Qt owns it and delivers its events; position, pixels and
/// shape are sent directly to the server in whole pixels, at any display scale.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Panels/Accessible/AccessibleDock.hpp"
#include "Panels/Context/PanelContext.hpp"
#include "Panels/Drops/XdndTarget.hpp"
#include "Panels/Keeping/DockKeeper.hpp"
#include "Panels/PanelGeometry.hpp"
#include "Panels/Picture/FrameClock.hpp"
#include "Panels/Picture/PanelPresenter.hpp"
#include "Panels/Pointer/PanelPointer.hpp"
#include "Platform/PanelWindow.hpp"
#include "Toolkit/PopUpMenu.hpp"

#include <QWindow>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vireline::x11 {

class QtPanelWindow final : public QWindow, public PanelWindow, private PanelPointer::Window {
public:
    QtPanelWindow(const PanelContext& context, std::uint32_t displayID, const Rect& frame,
                  PanelWindowListener& listener);
    ~QtPanelWindow() override;

    void setOverhang(const Overhang& overhang) override { geometry_.setOverhang(overhang); }
    void setFrame(const Rect& frame, bool animate) override;
    void setHostedFrame(const Rect& frame) override;
    void present(const Scene& scene) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void requestFrame() override;
    void watchForCancel(bool watches) override;
    void checkPress() override { pointer_.look(); }
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override;

    [[nodiscard]] QAccessibleInterface* accessibleRoot() const override;

private:
    bool event(QEvent* event) override;
    bool nativeEvent(const QByteArray& type, void* message, qintptr* result) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    void observe();
    void handleNative(const xcb_generic_event_t& event);
    void displaysChanged();
    void lookChanged();
    void surfaceCreated();
    void surfaceDestroyed();
    void keep();
    void changeKeeper(Keeper keeper);
    void placeChanged();
    void show();
    void updateSoon();
    void update();
    void relayout();
    void showFrame();

    [[nodiscard]] bool takesPointer(QPointF pixel) const override;
    [[nodiscard]] Point viewPosition(QPointF pixel) const override {
        return geometry_.mapping().toView(pixel);
    }
    void requestTick() override;
    [[nodiscard]] bool followsPointer() const override {
        return picture_ && picture_->scene().followsPointer;
    }
    [[nodiscard]] bool isFrameRequested() const override { return isFrameAsked_; }

    /// Where the picture assumes the window to be; in pixels of the root window.
    [[nodiscard]] PixelRect drawnPlace() const;
    [[nodiscard]] QPoint corner() const { return {drawnPlace().x, drawnPlace().y}; }
    /// Converts a position reported by Qt.
    [[nodiscard]] QPointF pixel(QPointF position) const;
    /// Converts a part of the view to Qt's screen coordinates.
    [[nodiscard]] QRect placeOnScreen(const Rect& view) const;

    PanelContext context_;
    std::uint32_t displayID_;
    PanelWindowListener& listener_;
    PanelPointer pointer_;
    PanelGeometry geometry_;
    /// The scene to show once there is an X window.
    Scene scene_;
    bool updateIsDue_ = false;
    bool isFrameAsked_ = false;
    bool isInFrame_ = false;
    /// What the dock requests now is shown in the current frame.
    bool isSampling_ = false;
    /// Who keeps the X window in place.
    Keeper keptBy_;
    /// The current X window; Qt creates a new one when the screen is lost.
    xcb_window_t window_ = XCB_NONE;
    std::unique_ptr<PanelPresenter> picture_;
    std::unique_ptr<DockKeeper> keeper_;
    std::unique_ptr<XdndTarget> drops_;
    std::unique_ptr<xdg::PopUpMenu> menu_;
    std::unique_ptr<xdg::AccessibleDock> accessible_;
    std::vector<Subscription> subscriptions_;
    Lifetime lifetime_;
    FrameClock frames_;
};

}
