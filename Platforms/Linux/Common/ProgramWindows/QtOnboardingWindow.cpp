#include "ProgramWindows/QtOnboardingWindow.hpp"

#include "ProgramWindows/Pages/OnboardingPageView.hpp"

namespace vireline::xdg {

QtOnboardingWindow::QtOnboardingWindow(const WindowStyle& style, const WindowContext& context,
                                       OnboardingListener& listener)
    : context_(context)
    , listener_(listener)
    , shell_(
          style, context, [this](QtProgramWindow& window) { populate(window); },
          [this] { pages_ = nullptr; }) {}

void QtOnboardingWindow::present(const OnboardingPage& page) {
    if (page == page_)
        return;
    page_ = page;
    if (pages_ != nullptr)
        turnPage();
}

void QtOnboardingWindow::populate(QtProgramWindow& window) {
    auto pages = std::make_unique<QStackedWidget>();
    pages_ = pages.get();
    turnPage();
    window.setContent(std::move(pages));
}

void QtOnboardingWindow::turnPage() {
    auto view = std::make_unique<OnboardingPageView>(
        page_, context_.symbols,
        [this](OnboardingAction action) { listener_.onboardingActed(action); });
    QWidget* const button = view->mainButton();
    pages_->setCurrentIndex(pages_->addWidget(view.release()));
    // The button that was pressed may be on the previous page, which therefore must not be deleted
    // yet.
    if (pages_->count() > 1) {
        QWidget* const before = pages_->widget(0);
        pages_->removeWidget(before);
        before->hide();
        before->deleteLater();
    }
    button->setFocus(Qt::OtherFocusReason);
}

}
