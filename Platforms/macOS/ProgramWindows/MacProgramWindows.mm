#include "ProgramWindows/MacProgramWindows.hpp"

#include "ProgramWindows/MacFormWindow.hpp"
#include "ProgramWindows/MacOnboardingWindow.hpp"

namespace vireline::macos {

std::unique_ptr<FormWindow> MacProgramWindows::makeFormWindow(const WindowStyle& style,
                                                              FormListener& listener) {
    return std::make_unique<MacFormWindow>(style, listener, focus_);
}

std::unique_ptr<OnboardingPageWindow>
MacProgramWindows::makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) {
    return std::make_unique<MacOnboardingWindow>(style, listener, focus_);
}

}
