/// The displays, the dock windows on them and the pointer's settings, in memory. A dock window's
/// record outlives the window, so that a test can tell what became of it.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Platform/MotionSettings.hpp"
#include "Platform/PanelWindow.hpp"
#include "Platform/PointerSettings.hpp"
#include "Platform/Screens.hpp"
#include "Views/PointerTracker.hpp"

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

/// What became of one dock window.
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
        MenuClosed onClose;
    };

    FakePanel(std::uint32_t display, const Rect& initial, PanelWindowListener& reportsTo)
        : displayID(display), frame(initial), listener_(&reportsTo) {}

    [[nodiscard]] bool isAlive() const noexcept { return listener_ != nullptr; }

    /// Where the platform reports to; the window must be alive.
    [[nodiscard]] PanelWindowListener& listener() const;

    /// The pointer over the window, which must be alive, as a platform keeps track of it.
    [[nodiscard]] PointerTracker& pointer() const;

    /// Chooses an entry of the menu that was popped up last, and closes it.
    void choose(std::size_t index);
    /// Closes that menu without a choice.
    void dismissMenu();
    [[nodiscard]] bool isMenuOpen() const noexcept { return isMenuOpen_; }

    /// Lets the display show its next frame, if one was asked for.
    void nextFrame();
    [[nodiscard]] bool isFrameRequested() const noexcept { return isFrameRequested_; }

    std::uint32_t displayID;
    /// Where it is now, where it was asked to go since its making.
    Rect frame;
    std::vector<FrameChange> frameChanges;
    /// As it was set last, and as it applies to the frame.
    Overhang nextOverhang;
    Overhang overhang;
    std::optional<Rect> hostedFrame;
    std::optional<Scene> scene;
    int presentations = 0;
    bool isVisible = false;
    /// Since it was last shown.
    bool isOrderedOut = false;
    int timesOrderedFront = 0;
    bool watchesForCancel = false;
    /// Where the pointer is when the window looks for it.
    PointerTracker::PointerState pointerState;
    std::vector<PoppedMenu> menus;
    /// Called once, from within the next such call, as a platform might that reports an event
    /// there.
    std::function<void()> onSetFrame;
    std::function<void()> onSetOverhang;
    std::function<void()> onRequestFrame;

private:
    friend class FakePanelWindow;

    /// Null once the window is gone.
    PanelWindowListener* listener_;
    PointerTracker* pointer_ = nullptr;
    bool isMenuOpen_ = false;
    bool isFrameRequested_ = false;
};

class FakePanelWindow final : public PanelWindow {
public:
    explicit FakePanelWindow(std::shared_ptr<FakePanel> panel);
    FakePanelWindow(const FakePanelWindow&) = delete;
    FakePanelWindow& operator=(const FakePanelWindow&) = delete;
    FakePanelWindow(FakePanelWindow&&) = delete;
    FakePanelWindow& operator=(FakePanelWindow&&) = delete;
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
    void popUpMenu(const Menu& menu, const MenuPlace& place, MenuClosed onClose) override;

private:
    std::shared_ptr<FakePanel> panel_;
    PointerTracker pointer_;
};

class FakePanelWindows final : public PanelWindows {
public:
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override;

    /// The window on this display, shown or still to be shown; null when there is none.
    [[nodiscard]] FakePanel* find(std::uint32_t displayID) const;
    /// The same, where the test takes it for granted.
    [[nodiscard]] FakePanel& panel(std::uint32_t displayID) const;
    /// The displays that have such a window, in the order of the windows' making.
    [[nodiscard]] std::vector<std::uint32_t> displays() const;

    /// Every window ever made, oldest first, whether it lives or not.
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
