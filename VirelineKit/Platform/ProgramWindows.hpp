/// The program's own windows with native controls: they realise a description and report what the
/// user does with it, and decide nothing.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Presentation/Form.hpp"
#include "Presentation/OnboardingPage.hpp"

#include <memory>
#include <string>

namespace vireline {

/// A titled window that can be closed but not resized.
struct WindowStyle {
    std::string title;
    /// Points, without the frame.
    Size contentSize;
    bool isMiniaturizable = false;

    bool operator==(const WindowStyle&) const = default;
};

class ProgramWindow {
public:
    virtual ~ProgramWindow() = default;

    /// Shows the window in front of all others with the keyboard's focus: in the middle of a
    /// display the first time, where the user left it from then on.
    virtual void makeKeyAndOrderFront() = 0;

    /// As if the user had closed it.
    virtual void close() = 0;

    /// Between its showing and its closing, also while it is miniaturised.
    [[nodiscard]] virtual bool isVisible() const = 0;
};

/// Who hears what the user does in a form. Outlives the window.
class FormListener {
public:
    virtual ~FormListener() = default;

    virtual void formChanged(SettingsField field, const FormValue& value) = 0;
    /// The button in the status line below that field's control.
    virtual void formStatusButtonPressed(SettingsField field) = 0;
};

class FormWindow : public ProgramWindow {
public:
    /// What the window shows from now on, also when it is shown only later. Controls that stay are
    /// updated in place; one that the user is moving is left alone until it is let go.
    virtual void present(const Form& form) = 0;
};

/// Who hears which button was pressed. Outlives the window.
class OnboardingListener {
public:
    virtual ~OnboardingListener() = default;

    virtual void onboardingActed(OnboardingAction action) = 0;
};

class OnboardingPageWindow : public ProgramWindow {
public:
    /// What the window shows from now on, also when it is shown only later.
    virtual void present(const OnboardingPage& page) = 0;
};

class ProgramWindows {
public:
    virtual ~ProgramWindows() = default;

    /// Windows that are not shown yet.
    [[nodiscard]] virtual std::unique_ptr<FormWindow> makeFormWindow(const WindowStyle& style,
                                                                     FormListener& listener) = 0;
    [[nodiscard]] virtual std::unique_ptr<OnboardingPageWindow>
    makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) = 0;
};

}
