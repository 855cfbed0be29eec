#include "ProgramWindows/QtFormWindow.hpp"

#include "Platform/Desktop/MotionSettings.hpp"
#include "ProgramWindows/Pages/PageScroller.hpp"

namespace vireline::xdg {

QtFormWindow::QtFormWindow(const WindowStyle& style, const WindowContext& context,
                           FormListener& listener)
    : context_(context)
    , listener_(listener)
    , shell_(
          style, context, [this](QtProgramWindow& window) { populate(window); },
          [this] { cleared(); }) {}

void QtFormWindow::present(const Form& form) {
    form_ = form;
    if (view_ != nullptr)
        view_->present(form_);
}

void QtFormWindow::populate(QtProgramWindow& window) {
    const bool animates = !context_.motionSettings.reducesMotion();
    auto view =
        std::make_unique<FormView>(FormContext{listener_, context_.symbols, animates}, nullptr);
    view_ = view.get();
    view_->present(form_);
    auto scroller = std::make_unique<PageScroller>(std::move(view));
    scroller_ = scroller.get();
    window.setContent(std::move(scroller));
    window.closeOnEscape();
    scroller_->scrollTo(scrolled_);
    if (focus_)
        view_->setFocus(*focus_);
}

void QtFormWindow::cleared() {
    scrolled_ = scroller_->position();
    focus_ = view_->focus();
    scroller_ = nullptr;
    view_ = nullptr;
}

}
