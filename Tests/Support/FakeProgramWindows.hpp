/// In-memory fakes of the program's own windows, status item and login item. A window's record
/// outlives the window, so that a test can inspect it afterwards.
#pragma once

#include "Platform/Desktop/LoginItemService.hpp"
#include "Platform/ProgramWindows.hpp"
#include "Platform/StatusBar.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::test {

/// The record of a window with this type of content and listener.
template <class Content, class Listener>
struct FakeProgramWindow {
    FakeProgramWindow(WindowStyle made, Listener& reportsTo)
        : style(std::move(made)), listener(reportsTo) {}

    /// Simulates the user closing the window.
    void closeByButton() { isVisible = false; }

    WindowStyle style;
    Listener& listener;
    Content content;
    int presentations = 0;
    bool isVisible = false;
    int timesShown = 0;
};

using FakeForm = FakeProgramWindow<Form, FormListener>;
using FakeTour = FakeProgramWindow<OnboardingPage, OnboardingListener>;

class FakeProgramWindows final : public ProgramWindows {
public:
    [[nodiscard]] std::unique_ptr<FormWindow> makeFormWindow(const WindowStyle& style,
                                                             FormListener& listener) override;
    [[nodiscard]] std::unique_ptr<OnboardingPageWindow>
    makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) override;

    /// All windows ever created.
    std::vector<std::shared_ptr<FakeForm>> forms;
    std::vector<std::shared_ptr<FakeTour>> tours;
};

/// The row for this field, which must exist.
[[nodiscard]] const FormRow& rowOf(const Form& form, SettingsField field);
/// Null if the form has no such row.
[[nodiscard]] const FormRow* findRow(const Form& form, SettingsField field);

class FakeLoginItemService final : public LoginItemService {
public:
    [[nodiscard]] Status status() const override { return current; }
    Result<void> registerItem() override;
    Result<void> unregisterItem() override;

    Status current = Status::notRegistered;
    /// While set, calls fail and change nothing.
    std::optional<PlatformError> failure;
    int registrations = 0;
    int unregistrations = 0;
};

struct FakeStatusItem {
    std::string symbol;
    std::string description;
    std::function<Menu()> menu;
};

class FakeStatusBar final : public StatusBar {
public:
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem() override;

    /// Opens the item's menu and returns what the user sees.
    [[nodiscard]] Menu openMenu() const;
    /// Chooses the entry with this title.
    void choose(std::string_view title) const;
    /// Presses a key with the command modifier while the menu is open.
    void pressKey(char key) const;

    /// Whether the desktop has room for the item.
    bool hasPlace = true;
    /// The current item, if there is one.
    std::optional<FakeStatusItem> item;
    int made = 0;
};

}
