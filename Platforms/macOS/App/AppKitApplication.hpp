/// The program as an application of AppKit's.
#pragma once

#include "Platform/Application.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

class AppKitApplication final : public Application {
public:
    void becomeAccessory() override;

    /// The entries go to whatever has the focus, and at last to the application.
    void installMainMenu(const MainMenu& menu) override;

    /// Does not come back: AppKit ends the process.
    int run(std::function<void()> onFinishedLaunching) override;

    void terminate() override;

    [[nodiscard]] std::int64_t processIdentifier() const override;

    /// The system keeps one instance, and tells it when the user opens the program again.
    [[nodiscard]] Subscription observeSecondStart(std::function<void()> handler) override;

private:
    CallbackList<> reopened_;
    /// The application itself holds it weakly.
    id<NSApplicationDelegate> _Nullable delegate_ = nil;
};

}
