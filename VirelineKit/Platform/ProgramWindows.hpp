/// The program's own windows, with native controls. They show a description, report what the user
/// does, and decide nothing.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Presentation/Form.hpp"
#include "Presentation/OnboardingPage.hpp"

#include <memory>
#include <string>

namespace vireline {

/// The windows have a title bar and can be closed, but not resized.
struct WindowStyle {
    std::string title;
    /// In points, without the window's frame.
    Size contentSize;
    bool isMiniaturizable = false;

    bool operator==(const WindowStyle&) const = default;
};

class ProgramWindow {
public:
    virtual ~ProgramWindow() = default;

    /// Shows the window in front of all others, with the keyboard focus. It is centred on a display
    /// the first time, and later where the user left it.
    virtual void makeKeyAndOrderFront() = 0;

    /// Closes the window, as if the user had done so.
    virtual void close() = 0;

    /// True from showing until closing, also while the window is miniaturised.
    [[nodiscard]] virtual bool isVisible() const = 0;
};

/// Receives what the user does in a form. Must outlive the window.
class FormListener {
public:
    virtual ~FormListener() = default;

    virtual void formChanged(SettingsField field, const FormValue& value) = 0;
    /// The button in the status line below the field's control was pressed.
    virtual void formStatusButtonPressed(SettingsField field) = 0;
};

class FormWindow : public ProgramWindow {
public:
    /// Sets the contents, also while the window is hidden. Existing controls are updated in place;
    /// one that the user is dragging is left alone until it is released.
    virtual void present(const Form& form) = 0;
};

/// Receives which button was pressed. Must outlive the window.
class OnboardingListener {
public:
    virtual ~OnboardingListener() = default;

    virtual void onboardingActed(OnboardingAction action) = 0;
};

class OnboardingPageWindow : public ProgramWindow {
public:
    /// Sets the contents, also while the window is hidden.
    virtual void present(const OnboardingPage& page) = 0;
};

class ProgramWindows {
public:
    virtual ~ProgramWindows() = default;

    /// Both create hidden windows.
    [[nodiscard]] virtual std::unique_ptr<FormWindow> makeFormWindow(const WindowStyle& style,
                                                                     FormListener& listener) = 0;
    [[nodiscard]] virtual std::unique_ptr<OnboardingPageWindow>
    makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) = 0;
};

}
