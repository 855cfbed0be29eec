/// The program as a Qt application on an X11 desktop.
#pragma once

#include "Platform/Application.hpp"
#include "Toolkit/SecondStarts.hpp"

#include <QAction>
#include <QApplication>
#include <memory>
#include <vector>

namespace vireline::xdg {

class QtApplication final : public Application {
public:
    /// Both must outlive this object.
    QtApplication(QApplication& qt, SecondStarts& secondStarts);

    /// Does nothing: desktops list windows rather than programs, and each of our windows asks on
    /// its own to be kept out of taskbars and pagers.
    void becomeAccessory() override {}

    /// The program's own windows get the shortcuts with `addActions(mainMenuActions())`.
    void installMainMenu(const MainMenu& menu) override;

    /// The installed menu's commands in order, with the desktop's own shortcuts. Valid until the
    /// next call of `installMainMenu` or the destruction of this object.
    [[nodiscard]] QList<QAction*> mainMenuActions() const;

    int run(std::function<void()> onFinishedLaunching) override;

    /// May be called before `run`, which then returns at once.
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
