/// The window of one dock: an NSPanel, a content view that receives the input, and a view that
/// shows the scene.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Panels/FrameClock.hpp"
#include "Panels/PopUpMenu.hpp"
#include "Panels/VirelineDockView.hpp"
#include "Panels/VirelinePanel.hpp"
#include "Platform/PanelWindow.hpp"
#include "Translation/PanelInput.hpp"

#import <AppKit/AppKit.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace vireline::macos {

class MacPanelWindow final : public PanelWindow, private NonCopyable {
public:
    MacPanelWindow(std::uint32_t displayID, const Rect& frame, PanelWindowListener& listener);
    ~MacPanelWindow() override;

    void setOverhang(const Overhang& overhang) override { nextOverhang_ = overhang; }
    void setFrame(const Rect& frame, bool animate) override;
    void setHostedFrame(const Rect& frame) override;
    void present(const Scene& scene) override;
    void requestFrame() override { frames_.request(); }
    void watchForCancel(bool watches) override;
    void checkPress() override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override;

private:
    void observe();
    void applyFrame(bool animate);
    void placeDock();
    void restore();
    void lookAtPointerSoon();
    void lookAtPointer();
    /// Either call may destroy this window.
    void menuClosed(const MenuAction& chosen, const std::function<void()>& onClose);
    [[nodiscard]] Point pointer() const;

    std::shared_ptr<PanelInput> input_;
    Rect frame_;
    Rect hostedFrame_;
    /// The overhang of the current frame, and that of the next one.
    Overhang overhang_;
    Overhang nextOverhang_;
    /// Whether the window is changing its width with its right edge fixed.
    bool isHeldAtRight_ = false;
    /// Nil if creating them failed.
    VirelinePanel* _Nullable panel_;
    VirelineDockView* _Nullable dock_;
    FrameClock frames_;
    std::shared_ptr<PopUpMenu> menu_;
    Subscription cancelWatch_;
    std::vector<Subscription> subscriptions_;
    Lifetime lifetime_;
};

}
