/// One page of the welcome tour: title, text or features, the state of the window features, and
/// below them the page dots and the buttons.
#pragma once

#include "Presentation/OnboardingPage.hpp"
#include "ProgramWindows/Controls/TextLabel.hpp"

#include <QWidget>
#include <functional>

class QVBoxLayout;

namespace vireline::xdg {

class Symbols;

class OnboardingPageView final : public QWidget {
public:
    using Acted = std::function<void(OnboardingAction)>;

    OnboardingPageView(const OnboardingPage& page, const Symbols& symbols, Acted acted);

    /// The button that Return should press.
    [[nodiscard]] QWidget* mainButton() const noexcept { return mainButton_; }

private:
    void addCover(const OnboardingPage& page, QVBoxLayout& column);
    void addFeatures(const OnboardingPage& page, QVBoxLayout& column);
    void addPermission(const PermissionBlock& permission, QVBoxLayout& column);
    void addNavigation(const OnboardingPage& page, QVBoxLayout& column);
    QLabel* addText(TextLabel::Kind kind, const std::string& words);
    QWidget* makeButton(const OnboardingButton& button, bool isProminent);

    const Symbols& symbols_;
    Acted acted_;
    QWidget* mainButton_ = nullptr;
};

}
