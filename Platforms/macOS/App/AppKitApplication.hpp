/// The program as an AppKit application.
#pragma once

#include "Platform/Application.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

class AppKitApplication final : public Application {
public:
    void becomeAccessory() override;

    /// The actions are sent along the responder chain, from the focused view to the application.
    void installMainMenu(const MainMenu& menu) override;

    /// Normally does not return: AppKit ends the process.
    int run(std::function<void()> onFinishedLaunching) override;

    void terminate() override;

    [[nodiscard]] std::int64_t processIdentifier() const override;

    /// The system runs a single instance, and notifies it when the user opens the program again.
    [[nodiscard]] Subscription observeSecondStart(std::function<void()> handler) override;

private:
    CallbackList<> reopened_;
    /// Held here, since NSApplication references its delegate weakly.
    id<NSApplicationDelegate> _Nullable delegate_ = nil;
};

}
