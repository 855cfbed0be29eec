/// The window of the welcome tour, which is shown at every start until the user has finished it
/// once, and on request.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/Desktop/DesktopWords.hpp"
#include "Platform/ProgramWindows.hpp"

#include <array>
#include <memory>

namespace vireline {

class Accessibility;
class DockAnchorGuard;
class PreferencesStore;
class Workspace;
struct Platform;

class OnboardingWindowController : private OnboardingListener, private NonCopyable {
public:
    OnboardingWindowController(PreferencesStore& store, DockAnchorGuard& anchorGuard,
                               const Platform& platform);

    /// Brings the window to the front. If it was closed, it starts again at the first page.
    void show();

    /// Closes the window, and records that it need not be shown at the next start.
    void finish();

private:
    void onboardingActed(OnboardingAction action) override;

    void makeWindow();
    void present();
    void go(int step);
    void enableFeatures();

    PreferencesStore& store_;
    DockAnchorGuard& anchorGuard_;
    ProgramWindows& windows_;
    Workspace& workspace_;
    Accessibility& accessibility_;
    DesktopWords words_;
    std::unique_ptr<OnboardingPageWindow> window_;
    int step_ = 0;
    std::array<Subscription, 2> observations_;
    Lifetime lifetime_;
};

}
