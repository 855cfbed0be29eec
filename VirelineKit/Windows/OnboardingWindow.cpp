#include "Windows/OnboardingWindow.hpp"

#include "App/DevLog.hpp"
#include "Platform/Workspace.hpp"
#include "Settings/PreferencesStore.hpp"
#include "WindowManagement/DockAnchorGuard.hpp"
#include "Windows/OnboardingView.hpp"
#include "Windows/SystemSettings.hpp"

#include <algorithm>

namespace vireline {

OnboardingWindowController::OnboardingWindowController(PreferencesStore& store,
                                                       DockAnchorGuard& anchorGuard,
                                                       ProgramWindows& windows,
                                                       Workspace& workspace)
    : store_(store), anchorGuard_(anchorGuard), windows_(windows), workspace_(workspace) {}

void OnboardingWindowController::show() {
    if (!window_)
        makeWindow();
    if (!window_->isVisible())
        step_ = 0;
    present();
    window_->makeKeyAndOrderFront();
}

void OnboardingWindowController::makeWindow() {
    window_ = windows_.makeOnboardingWindow(
        {.title = "Welcome to Vireline", .contentSize = {560, 480}, .isMiniaturizable = false},
        *this);
    anchorStatus_ = anchorGuard_.observeStatus(lifetime_.guard([this] {
        if (window_->isVisible())
            present();
    }));
}

void OnboardingWindowController::present() {
    window_->present(OnboardingView::page(step_, anchorGuard_.status()));
}

void OnboardingWindowController::onboardingActed(OnboardingAction action) {
    switch (action) {
    case OnboardingAction::back:
        return go(step_ - 1);
    case OnboardingAction::advance:
        return go(step_ + 1);
    case OnboardingAction::finish:
        return finish();
    case OnboardingAction::enableFeatures:
        return enableFeatures();
    }
}

void OnboardingWindowController::go(int step) {
    step_ = std::clamp(step, 0, OnboardingView::lastStep);
    present();
}

void OnboardingWindowController::enableFeatures() {
    for (bool Settings::* const feature :
         {&Settings::anchorAppleDock, &Settings::openOnThisDisplay, &Settings::summonOnClick,
          &Settings::fillOnDoubleClick}) {
        Settings settings = store_.settings();
        settings.*feature = true;
        store_.setSettings(std::move(settings));
    }
    workspace_.openSystemSettings(SystemSettings::accessibilityPane);
}

void OnboardingWindowController::finish() {
    Settings settings = store_.settings();
    settings.onboardingCompleted = true;
    store_.setSettings(std::move(settings));
    if (window_)
        window_->close();
    DevLog::write("onboarding completed");
}

}
