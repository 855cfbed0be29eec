#include "ProgramWindows/OnboardingWindow.hpp"

#include "ClientWindows/DockAnchorGuard.hpp"
#include "Foundation/DevLog.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/Applications/Workspace.hpp"
#include "Platform/Platform.hpp"
#include "ProgramWindows/OnboardingView.hpp"
#include "Settings/PreferencesStore.hpp"

#include <algorithm>

namespace vireline {

OnboardingWindowController::OnboardingWindowController(PreferencesStore& store,
                                                       DockAnchorGuard& anchorGuard,
                                                       const Platform& platform)
    : store_(store)
    , anchorGuard_(anchorGuard)
    , windows_(platform.programWindows)
    , workspace_(platform.workspace)
    , accessibility_(platform.accessibility)
    , words_(platform.words) {}

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
    const auto changed = lifetime_.guard([this] {
        if (window_->isVisible())
            present();
    });
    observations_ = {anchorGuard_.observeStatus(changed), accessibility_.observeManager(changed)};
}

void OnboardingWindowController::present() {
    const Settings& settings = store_.settings();
    const OnboardingView::Surroundings surroundings{
        .anchorStatus = anchorGuard_.status(),
        .canMoveWindows = accessibility_.canMoveWindows(),
        .hasFeatures =
            settings.openOnThisDisplay && settings.summonOnClick && settings.fillOnDoubleClick};
    window_->present(OnboardingView::page(step_, surroundings, words_));
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
        if (feature == &Settings::anchorAppleDock && !words_.offersAnchor)
            continue;
        Settings settings = store_.settings();
        settings.*feature = true;
        store_.setSettings(std::move(settings));
    }
    if (!words_.permissionPane.empty())
        workspace_.openSystemSettings(words_.permissionPane);
    // Without the anchor, nothing else tells that the page has changed.
    present();
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
