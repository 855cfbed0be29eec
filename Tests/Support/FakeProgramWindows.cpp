#include "Support/FakeProgramWindows.hpp"

#include "Foundation/NonCopyable.hpp"
#include "Foundation/Require.hpp"

#include <functional>

namespace vireline::test {
namespace {

/// A window that records what happens to it.
template <class Port, class Record, class Content>
class RecordedWindow final : public Port {
public:
    explicit RecordedWindow(std::shared_ptr<Record> record) : record_(std::move(record)) {}

    void makeKeyAndOrderFront() override {
        record_->isVisible = true;
        ++record_->timesShown;
    }
    void close() override { record_->isVisible = false; }
    [[nodiscard]] bool isVisible() const override { return record_->isVisible; }
    void present(const Content& content) override {
        record_->content = content;
        ++record_->presentations;
    }

private:
    std::shared_ptr<Record> record_;
};

class RecordedStatusItem final : public StatusItem, private NonCopyable {
public:
    RecordedStatusItem(std::optional<FakeStatusItem>& item, const bool& hasPlace)
        : item_(item), hasPlace_(hasPlace) {}
    ~RecordedStatusItem() override { item_.reset(); }

    void setImage(const std::string& symbol, const std::string& accessibilityDescription) override {
        item_->symbol = symbol;
        item_->description = accessibilityDescription;
    }
    void setMenu(std::function<Menu()> menu) override { item_->menu = std::move(menu); }
    [[nodiscard]] bool hasPlace() const override { return hasPlace_; }

private:
    std::optional<FakeStatusItem>& item_;
    const bool& hasPlace_;
};

/// Chooses the entry of an open menu that `matches`, if there is one.
void chooseWhere(const FakeStatusBar& bar, const std::function<bool(const MenuCommand&)>& matches) {
    const Menu menu = bar.openMenu();
    for (const MenuItem& entry : menu.entries) {
        const auto* const command = std::get_if<MenuCommand>(&entry);
        if (command != nullptr && matches(*command))
            return command->action();
    }
}

}

std::unique_ptr<FormWindow> FakeProgramWindows::makeFormWindow(const WindowStyle& style,
                                                               FormListener& listener) {
    forms.push_back(std::make_shared<FakeForm>(style, listener));
    return std::make_unique<RecordedWindow<FormWindow, FakeForm, Form>>(forms.back());
}

std::unique_ptr<OnboardingPageWindow>
FakeProgramWindows::makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) {
    tours.push_back(std::make_shared<FakeTour>(style, listener));
    return std::make_unique<RecordedWindow<OnboardingPageWindow, FakeTour, OnboardingPage>>(
        tours.back());
}

const FormRow* findRow(const Form& form, SettingsField field) {
    for (const FormSection& section : form.sections) {
        for (const FormRow& row : section.rows) {
            if (row.field == field)
                return &row;
        }
    }
    return nullptr;
}

const FormRow& rowOf(const Form& form, SettingsField field) {
    const FormRow* const row = findRow(form, field);
    require(row != nullptr, "the form has the row");
    return *row;
}

Result<void> FakeLoginItemService::registerItem() {
    ++registrations;
    if (failure)
        return std::unexpected{*failure};
    current = Status::enabled;
    return {};
}

Result<void> FakeLoginItemService::unregisterItem() {
    ++unregistrations;
    if (failure)
        return std::unexpected{*failure};
    current = Status::notRegistered;
    return {};
}

std::unique_ptr<StatusItem> FakeStatusBar::makeStatusItem() {
    ++made;
    item.emplace();
    return std::make_unique<RecordedStatusItem>(item, hasPlace);
}

Menu FakeStatusBar::openMenu() const {
    require(item.has_value(), "there is an item");
    return item->menu();
}

void FakeStatusBar::choose(std::string_view title) const {
    chooseWhere(*this, [=](const MenuCommand& command) { return command.title == title; });
}

void FakeStatusBar::pressKey(char key) const {
    chooseWhere(*this, [=](const MenuCommand& command) { return command.keyEquivalent == key; });
}

}
