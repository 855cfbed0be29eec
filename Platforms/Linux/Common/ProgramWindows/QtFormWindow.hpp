/// The settings form in a scrollable window.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/Pages/FormView.hpp"
#include "ProgramWindows/WindowShell.hpp"

#include <optional>

namespace vireline::xdg {

class PageScroller;

class QtFormWindow final : public FormWindow {
public:
    QtFormWindow(const WindowStyle& style, const WindowContext& context, FormListener& listener);

    void makeKeyAndOrderFront() override { shell_.makeKeyAndOrderFront(); }
    void close() override { shell_.close(); }
    [[nodiscard]] bool isVisible() const override { return shell_.isVisible(); }
    void present(const Form& form) override;

private:
    void populate(QtProgramWindow& window);
    /// Saves the focus and the scroll position.
    void cleared();

    const WindowContext& context_;
    FormListener& listener_;
    Form form_;
    /// Null while the window is closed.
    FormView* view_ = nullptr;
    PageScroller* scroller_ = nullptr;
    int scrolled_ = 0;
    std::optional<FormView::Place> focus_;
    WindowShell shell_;
};

}
