/// In-memory fakes of other programs' windows and of pointer taps.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/Applications/RunningApplications.hpp"
#include "Platform/Desktop/PointerTap.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::test {

/// A window of another program, in event space.
struct FakeWindow {
    Rect frame;
    /// The window's minimum size; attempts to make it smaller result in this size.
    Size minimumSize{};
    /// A dialog is never an app's main window.
    bool isDialog = false;
    std::string title{};
    /// Minimised or otherwise not shown.
    bool isHidden = false;
};

class FakeAccessibility final : public Accessibility {
public:
    [[nodiscard]] bool isTrusted() const override { return trusted && movesWindows; }
    [[nodiscard]] bool canMoveWindows() const override { return movesWindows; }
    [[nodiscard]] Subscription observeManager(std::function<void()> handler) override {
        return managers_.add(std::move(handler));
    }
    bool isTrustedWithPrompt() override;
    [[nodiscard]] ElementHandle application(std::int32_t processIdentifier,
                                            const std::string& bundleID) override;
    void setMessagingTimeout(AccessibilityElement& element, float seconds) override;
    [[nodiscard]] Result<ElementHandle> mainWindow(AccessibilityElement& application) override;
    [[nodiscard]] Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) override;
    [[nodiscard]] Result<std::vector<OpenWindow>>
    openWindows(AccessibilityElement& application) override;
    Result<void> bringForward(AccessibilityElement& window) override;
    [[nodiscard]] Result<Point> position(AccessibilityElement& window) override;
    Result<void> setPosition(AccessibilityElement& window, Point position) override;
    [[nodiscard]] Result<Size> size(AccessibilityElement& window) override;
    Result<void> setSize(AccessibilityElement& window, Size size) override;

    /// Adds a window to the app and makes it active.
    FakeWindow& addWindow(const RunningApplication& app, const Rect& frame);
    /// The most recently active window becomes the app's main window.
    void activate(const FakeWindow& window);
    void close(const FakeWindow& window);

    /// Simulates a change of window managers.
    void changeManager(bool canMoveWindows) {
        movesWindows = canMoveWindows;
        managers_.notify();
    }

    bool trusted = true;
    /// Whether windows can be moved on this desktop.
    bool movesWindows = true;
    /// While false, all calls about windows fail.
    bool answers = true;
    /// Whether the system tells which windows an app has.
    bool listsWindows = true;
    int prompts = 0;
    /// Failing calls, by attribute name; "set AXPosition" for a setter.
    std::map<std::string, PlatformError> failures;
    /// Attributes whose value is not an element: "AXMainWindow", "AXWindows" (its first).
    std::vector<std::string> notElements;
    /// All attributes that were set, in order, such as "AXPosition (10, 20)".
    std::vector<std::string> sets;
    /// The titles of all windows that were brought forward, in order.
    std::vector<std::string> broughtForward;
    /// Number of calls about elements that had no timeout set.
    int callsWithoutTimeout = 0;
    std::vector<float> timeouts;

private:
    struct Element;

    struct Owned {
        std::string bundleID;
        std::int32_t processIdentifier = 0;
        /// Activation counter; higher is later.
        int lastActive = 0;
        std::shared_ptr<FakeWindow> window;
    };

    [[nodiscard]] std::optional<PlatformError> failureOf(const std::string& call,
                                                         AccessibilityElement& element);
    [[nodiscard]] bool isNoElement(const std::string& attribute) const;
    /// The windows of the app's process; if that is unknown or has none, all windows of the app.
    [[nodiscard]] std::vector<Owned> windowsOf(const Element& application) const;
    [[nodiscard]] std::vector<Owned>::iterator find(const FakeWindow& window);

    /// Oldest first.
    std::vector<Owned> windows_;
    int activations_ = 0;
    CallbackList<> managers_;
};

class FakePointerTaps final : public PointerTaps {
public:
    [[nodiscard]] bool needPermission() const override { return needsPermission; }
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule rule,
                                                             Disabled onDisabled) override;

    /// Moves the pointer as the user would; returns where it ends up.
    Point move(Point to);

    /// Disables the tap as the system does, and notifies it of the reason.
    void disable(PointerTapEvent reason);

    /// The rule of the only tap.
    [[nodiscard]] PointerRule rule() const { return tap_.lock()->rule; }

    [[nodiscard]] bool isTapped() const { return !tap_.expired(); }
    [[nodiscard]] bool isEnabled() const;

    bool needsPermission = true;
    /// While set, creating a tap fails.
    std::optional<PlatformError> failure;
    int created = 0;

private:
    struct State {
        PointerRule rule;
        Disabled onDisabled;
        bool isEnabled = false;
    };
    class Tap;

    std::weak_ptr<State> tap_;
};

}
