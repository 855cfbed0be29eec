/// In-memory fakes of displays, dock windows and pointer settings. A dock window's record outlives
/// the window, so that a test can inspect it afterwards.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Desktop/MotionSettings.hpp"
#include "Platform/Desktop/PointerSettings.hpp"
#include "Platform/Desktop/Screens.hpp"
#include "Platform/PanelWindow.hpp"
#include "Views/Input/PointerTracker.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vireline::test {

class FakeScreens final : public Screens {
public:
    [[nodiscard]] std::vector<PlatformScreen> screens() const override { return list; }
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

    void announceChange() { changes_.notify(); }

    std::vector<PlatformScreen> list;

private:
    CallbackList<> changes_;
};

/// The record of one dock window.
class FakePanel {
public:
    struct FrameChange {
        Rect frame;
        bool animate = false;

        bool operator==(const FrameChange&) const = default;
    };
    struct PoppedMenu {
        Menu menu;
        MenuPlace place;
        std::function<void()> onClose;
    };

    FakePanel(std::uint32_t display, const Rect& initial, PanelWindowListener& reportsTo)
        : displayID(display), frame(initial), listener_(&reportsTo) {}

    [[nodiscard]] bool isAlive() const noexcept { return listener_ != nullptr; }

    /// The listener of the window, which must still exist.
    [[nodiscard]] PanelWindowListener& listener() const;

    /// The pointer over the window, tracked as on a real platform. The window must still exist.
    [[nodiscard]] PointerTracker& pointer() const;

    /// Chooses a command of the menu that was popped up last, which closes it.
    void choose(std::size_t index);
    /// Closes that menu without a choice.
    void dismissMenu();
    [[nodiscard]] bool isMenuOpen() const noexcept { return isMenuOpen_; }

    /// Shows the next frame, if one was requested.
    void nextFrame();
    [[nodiscard]] bool isFrameRequested() const noexcept { return isFrameRequested_; }

    std::uint32_t displayID;
    /// The current frame, and all frames set since the window was created.
    Rect frame;
    std::vector<FrameChange> frameChanges;
    /// The overhang as last set, and the one that applies to the current frame.
    Overhang nextOverhang;
    Overhang overhang;
    std::optional<Rect> hostedFrame;
    std::optional<Scene> scene;
    int presentations = 0;
    bool isVisible = false;
    /// Reset when the window is shown.
    bool isOrderedOut = false;
    int timesOrderedFront = 0;
    bool watchesForCancel = false;
    /// What the window finds when it queries the pointer.
    PointerTracker::PointerState pointerState;
    std::vector<PoppedMenu> menus;
    /// Called once from within the next such call, to simulate a platform that reports an event
    /// there.
    std::function<void()> onSetFrame;
    std::function<void()> onSetOverhang;
    std::function<void()> onRequestFrame;

private:
    friend class FakePanelWindow;

    void closeMenu();

    /// Null once the window is gone.
    PanelWindowListener* listener_;
    PointerTracker* pointer_ = nullptr;
    bool isMenuOpen_ = false;
    bool isFrameRequested_ = false;
};

class FakePanelWindow final : public PanelWindow, private NonCopyable {
public:
    explicit FakePanelWindow(std::shared_ptr<FakePanel> panel);
    ~FakePanelWindow() override;

    void setOverhang(const Overhang& overhang) override;
    void setFrame(const Rect& frame, bool animate) override;
    void setHostedFrame(const Rect& frame) override;
    void present(const Scene& scene) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void requestFrame() override;
    void watchForCancel(bool watches) override { panel_->watchesForCancel = watches; }
    void checkPress() override { pointer_.polled(panel_->pointerState); }
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override;

private:
    std::shared_ptr<FakePanel> panel_;
    PointerTracker pointer_;
};

class FakePanelWindows final : public PanelWindows {
public:
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

    /// The window on this display, visible or not; null if there is none.
    [[nodiscard]] FakePanel* find(std::uint32_t displayID) const;
    /// As above, but the window must exist.
    [[nodiscard]] FakePanel& panel(std::uint32_t displayID) const;
    /// The displays with such a window, in order of the windows' creation.
    [[nodiscard]] std::vector<std::uint32_t> displays() const;

    /// All windows ever created, oldest first, including destroyed ones.
    std::vector<std::shared_ptr<FakePanel>> made;
};

class FakeMotionSettings final : public MotionSettings {
public:
    [[nodiscard]] bool reducesMotion() const override { return reduces; }

    bool reduces = false;
};

class FakePointerSettings final : public PointerSettings {
public:
    [[nodiscard]] double doubleClickInterval() const override { return interval; }

    double interval = 0.5;
};

}
