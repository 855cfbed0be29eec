#include "OwnWindows/QtFormWindow.hpp"

#include "Platform/MotionSettings.hpp"
#include "OwnWindows/FormView.hpp"
#include "OwnWindows/PageScroller.hpp"

namespace vireline::x11 {

QtFormWindow::QtFormWindow(const WindowStyle& style, const WindowContext& context,
                           FormListener& listener)
    : context_(context)
    , listener_(listener)
    , shell_(
          style, context, [this](OwnWindow& window) { furnish(window); },
          [this] { view_ = nullptr; }) {}

void QtFormWindow::present(const Form& form) {
    form_ = form;
    if (view_ != nullptr)
        view_->present(form_);
}

void QtFormWindow::furnish(OwnWindow& window) {
    const bool animates = !context_.motionSettings.reducesMotion();
    auto view =
        std::make_unique<FormView>(FormContext{listener_, context_.symbols, animates}, nullptr);
    view_ = view.get();
    view_->present(form_);
    window.setContent(std::make_unique<PageScroller>(std::move(view)));
    window.closeOnEscape();
}

}
