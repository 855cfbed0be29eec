/// Creates the program's own windows.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/FocusReturn.hpp"

#include <memory>

namespace vireline::macos {

class MacProgramWindows final : public ProgramWindows {
public:
    [[nodiscard]] std::unique_ptr<FormWindow> makeFormWindow(const WindowStyle& style,
                                                             FormListener& listener) override;
    [[nodiscard]] std::unique_ptr<OnboardingPageWindow>
    makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) override;

private:
    std::shared_ptr<FocusReturn> focus_ = std::make_shared<FocusReturn>();
};

}
