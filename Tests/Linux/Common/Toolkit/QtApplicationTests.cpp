#include "App/VirelineApp.hpp"
#include "Foundation/CallbackList.hpp"
#include "Linux/EventLoop.hpp"
#include "Toolkit/QtApplication.hpp"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <string>
#include <vector>

namespace vireline::xdg {
namespace {

class FakeSecondStarts final : public SecondStarts {
public:
    Subscription observe(std::function<void()> handler) override {
        return listeners.add(std::move(handler));
    }

    CallbackList<> listeners;
};

class QtApplicationTest : public testing::Test {
protected:
    FakeSecondStarts secondStarts;
    QtApplication application{test::testApplication(), secondStarts};

    QAction& onlyAction(StandardAction action, char key) {
        application.installMainMenu({{{"", {MainMenuCommand{"Command", action, key}}}}});
        return *application.mainMenuActions().constFirst();
    }
};

TEST_F(QtApplicationTest, LaunchesBeforeAllOtherEventsAndEndsWhenToldTo) {
    std::vector<std::string> order;
    QTimer::singleShot(0, [&] { order.emplace_back("other"); });
    QObject named;
    QObject::connect(
        &named, &QObject::objectNameChanged, &named, [&] { order.emplace_back("posted earlier"); },
        Qt::QueuedConnection);
    named.setObjectName(QStringLiteral("a name"));

    const int code = application.run([&] {
        order.emplace_back("launched");
        QTimer::singleShot(0, [&] { application.terminate(); });
    });

    EXPECT_EQ(code, 0);
    ASSERT_FALSE(order.empty());
    EXPECT_EQ(order.front(), "launched");
}

TEST_F(QtApplicationTest, EndsAlthoughAWindowRefusesToClose) {
    struct Stubborn : QWidget {
        void closeEvent(QCloseEvent* event) override { event->ignore(); }
    } window;
    window.show();

    EXPECT_EQ(application.run([&] { application.terminate(); }), 0);
}

TEST_F(QtApplicationTest, DoesNotRunWhenItWasToldToEndBefore) {
    application.terminate();

    EXPECT_EQ(application.run([] { FAIL(); }), 0);
}

TEST_F(QtApplicationTest, OffersEveryCommandOfTheMenuWithTheDesktopsShortcut) {
    application.installMainMenu(
        {{{"", {MainMenuCommand{"Quit", StandardAction::terminate, 'q'}}},
          {"Edit",
           {MainMenuCommand{"Undo", StandardAction::undo, 'z'},
            MainMenuCommand{"Redo", StandardAction::redo, 'Z'}, MenuSeparator{},
            MainMenuCommand{"Paste", StandardAction::paste, 'v'}}}}});

    const auto actions = application.mainMenuActions();

    ASSERT_EQ(actions.size(), 4);
    EXPECT_EQ(actions[0]->text(), QStringLiteral("Quit"));
    EXPECT_TRUE(actions[0]->shortcuts().contains(QKeySequence{Qt::CTRL | Qt::Key_Q}));
    EXPECT_TRUE(actions[1]->shortcuts().contains(QKeySequence{Qt::CTRL | Qt::Key_Z}));
    EXPECT_TRUE(actions[2]->shortcuts().contains(QKeySequence{Qt::CTRL | Qt::SHIFT | Qt::Key_Z}));
    EXPECT_TRUE(actions[3]->shortcuts().contains(QKeySequence{Qt::CTRL | Qt::Key_V}));
}

// Behaviour: entry-3
TEST_F(QtApplicationTest, QuitsByTheProgramsOwnMenu) {
    application.installMainMenu(VirelineApp::hiddenMainMenu());
    const auto actions = application.mainMenuActions();
    const auto quits = [](const QAction* action) {
        return action->shortcuts().contains(QKeySequence{Qt::CTRL | Qt::Key_Q});
    };
    ASSERT_EQ(std::ranges::count_if(actions, quits), 1);
    QAction& quit = **std::ranges::find_if(actions, quits);

    EXPECT_EQ(quit.text(), QStringLiteral("Quit Vireline"));
    EXPECT_EQ(application.run([&] { quit.trigger(); }), 0);
}

TEST_F(QtApplicationTest, EditsWhateverFieldHasTheFocus) {
    QLineEdit field;
    field.setText(QStringLiteral("some text"));
    field.show();
    field.activateWindow();
    field.setFocus();
    ASSERT_TRUE(test::waitUntil([&] { return field.hasFocus(); }));
    field.deselect();

    onlyAction(StandardAction::selectAll, 'a').trigger();

    EXPECT_EQ(field.selectedText(), QStringLiteral("some text"));
}

// Behaviour: entry-3
TEST_F(QtApplicationTest, EditsWithEveryEntryOfTheProgramsOwnMenu) {
    application.installMainMenu(VirelineApp::hiddenMainMenu());
    QLineEdit field;
    field.show();
    field.activateWindow();
    field.setFocus();
    ASSERT_TRUE(test::waitUntil([&] { return field.hasFocus(); }));
    field.insert(QStringLiteral("dock"));
    const auto choose = [&](const char* title) {
        for (QAction* const action : application.mainMenuActions()) {
            if (action->text() == QLatin1String{title})
                action->trigger();
        }
        return field.text().toStdString();
    };

    EXPECT_EQ(choose("Undo"), "");
    EXPECT_EQ(choose("Redo"), "dock");
    choose("Select All");
    EXPECT_EQ(field.selectedText(), QStringLiteral("dock"));
    choose("Copy");
    field.end(false);
    EXPECT_EQ(choose("Paste"), "dockdock");
    choose("Select All");
    EXPECT_EQ(choose("Cut"), "");
    EXPECT_EQ(choose("Paste"), "dockdock");
}

TEST_F(QtApplicationTest, EditsNothingWithoutAFieldThatCan) {
    EXPECT_NO_FATAL_FAILURE(onlyAction(StandardAction::cut, 'x').trigger());

    QWidget plain;
    plain.show();
    plain.activateWindow();
    plain.setFocus();
    ASSERT_TRUE(test::waitUntil([&] { return plain.hasFocus(); }));
    EXPECT_NO_FATAL_FAILURE(onlyAction(StandardAction::cut, 'x').trigger());
}

TEST_F(QtApplicationTest, PassesSecondStartsOn) {
    int count = 0;
    const Subscription subscription = application.observeSecondStart([&] { ++count; });

    secondStarts.listeners.notify();

    EXPECT_EQ(count, 1);
}

TEST_F(QtApplicationTest, KnowsItsProcess) {
    EXPECT_EQ(application.processIdentifier(), ::getpid());
}

}
}
