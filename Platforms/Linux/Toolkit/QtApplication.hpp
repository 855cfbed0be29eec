/// The program as a Qt application on an X11 desktop.
#pragma once

#include "Platform/Application.hpp"
#include "Toolkit/SecondStarts.hpp"

#include <QAction>
#include <QApplication>
#include <memory>
#include <vector>

namespace vireline::x11 {

class QtApplication final : public Application {
public:
    /// Both outlive this object.
    QtApplication(QApplication& qt, SecondStarts& secondStarts);

    /// Nothing to do: no desktop lists a program as such, only its windows, and each of ours asks
    /// to be left out of taskbars and pagers itself.
    void becomeAccessory() override {}

    /// A window of the program's own takes the shortcuts on with `addActions(mainMenuActions())`.
    void installMainMenu(const MainMenu& menu) override;

    /// The installed menu's commands in order, with the desktop's own shortcuts for them. They
    /// live until the next installation or until this object goes.
    [[nodiscard]] QList<QAction*> mainMenuActions() const;

    int run(std::function<void()> onFinishedLaunching) override;

    /// Also before `run`, which then returns at once.
    void terminate() override;

    [[nodiscard]] std::int64_t processIdentifier() const override;

    [[nodiscard]] Subscription observeSecondStart(std::function<void()> handler) override;

private:
    void add(const MainMenuCommand& command);

    QApplication& qt_;
    SecondStarts& secondStarts_;
    std::vector<std::unique_ptr<QAction>> actions_;
    bool isTerminated_ = false;
};

}
