/// The settings form in a window that scrolls.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "OwnWindows/WindowShell.hpp"

namespace vireline::x11 {

class FormView;

class QtFormWindow final : public FormWindow {
public:
    QtFormWindow(const WindowStyle& style, const WindowContext& context, FormListener& listener);

    void makeKeyAndOrderFront() override { shell_.makeKeyAndOrderFront(); }
    void close() override { shell_.close(); }
    [[nodiscard]] bool isVisible() const override { return shell_.isVisible(); }
    void present(const Form& form) override;

private:
    void furnish(OwnWindow& window);

    WindowContext context_;
    FormListener& listener_;
    Form form_;
    /// Only while the window is open.
    FormView* view_ = nullptr;
    WindowShell shell_;
};

}
