/// Creates the program's own windows and owns what they share.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/QtProgramWindow.hpp"

#include <utility>

namespace vireline::xdg {

class QtProgramWindows final : public ProgramWindows {
public:
    explicit QtProgramWindows(WindowContext context) : context_(std::move(context)) {}

    [[nodiscard]] std::unique_ptr<FormWindow> makeFormWindow(const WindowStyle& style,
                                                             FormListener& listener) override;
    [[nodiscard]] std::unique_ptr<OnboardingPageWindow>
    makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) override;

private:
    WindowContext context_;
};

}
