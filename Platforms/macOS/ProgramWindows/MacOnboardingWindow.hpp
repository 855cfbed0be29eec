/// The welcome tour's window: one page at a time, with dots and buttons below it.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/Labels.hpp"
#include "ProgramWindows/StatusLineView.hpp"
#include "ProgramWindows/TitledWindow.hpp"

#import <AppKit/AppKit.h>

#include <memory>
#include <optional>
#include <vector>

namespace vireline::macos {

class MacOnboardingWindow final : public OnboardingPageWindow {
public:
    MacOnboardingWindow(const WindowStyle& style, OnboardingListener& listener,
                        std::shared_ptr<FocusReturn> focus);

    void present(const OnboardingPage& page) override;
    void makeKeyAndOrderFront() override { window_.makeKeyAndOrderFront(); }
    void close() override { window_.close(); }
    [[nodiscard]] bool isVisible() const override { return window_.isVisible(); }

private:
    void build(const OnboardingPage& page);
    double addText(const std::string& text, NSFont* _Nonnull font, NSColor* _Nonnull color,
                   double top);
    double addRow(const FeatureRow& row, double top);
    void addPermission(const PermissionBlock& block, double top);
    void addDots(const OnboardingPage& page);
    void addButtons(const std::vector<OnboardingButton>& buttons);
    [[nodiscard]] NSButton* _Nonnull makeButton(const OnboardingButton& button);

    OnboardingListener& listener_;
    Size size_;
    TitledWindow window_;
    /// Null if creating them failed.
    VirelineFlippedView* _Nullable content_ = nil;
    std::unique_ptr<StatusLineView> status_;
    /// The targets of the current buttons, which reference them weakly.
    std::vector<VirelineActionTarget*> targets_;
    std::optional<OnboardingPage> shown_;
};

}
