#include "ProgramWindows/QtProgramWindows.hpp"

#include "ProgramWindows/QtFormWindow.hpp"
#include "ProgramWindows/QtOnboardingWindow.hpp"

namespace vireline::xdg {

std::unique_ptr<FormWindow> QtProgramWindows::makeFormWindow(const WindowStyle& style,
                                                             FormListener& listener) {
    return std::make_unique<QtFormWindow>(style, context_, listener);
}

std::unique_ptr<OnboardingPageWindow>
QtProgramWindows::makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) {
    return std::make_unique<QtOnboardingWindow>(style, context_, listener);
}

}
