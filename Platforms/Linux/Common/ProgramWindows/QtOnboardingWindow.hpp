/// The welcome tour's window, one page at a time.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/WindowShell.hpp"

#include <QStackedWidget>

namespace vireline::xdg {

class QtOnboardingWindow final : public OnboardingPageWindow {
public:
    QtOnboardingWindow(const WindowStyle& style, const WindowContext& context,
                       OnboardingListener& listener);

    void makeKeyAndOrderFront() override { shell_.makeKeyAndOrderFront(); }
    void close() override { shell_.close(); }
    [[nodiscard]] bool isVisible() const override { return shell_.isVisible(); }
    void present(const OnboardingPage& page) override;

private:
    void populate(QtProgramWindow& window);
    void turnPage();

    const WindowContext& context_;
    OnboardingListener& listener_;
    OnboardingPage page_;
    /// Null while the window is closed.
    QStackedWidget* pages_ = nullptr;
    WindowShell shell_;
};

}
