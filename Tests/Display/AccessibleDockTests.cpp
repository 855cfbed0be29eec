#include "Display/WindowTest.hpp"
#include "Panels/Accessible/AccessibleDock.hpp"

#include <QAccessible>
#include <QGuiApplication>
#include <QWindow>
#include <array>
#include <utility>

namespace vireline {
namespace {

using test::EventLog;
using Words = std::vector<std::string>;

std::string wordOf(QAccessible::Event event) {
    switch (event) {
    case QAccessible::ObjectCreated:
        return "new";
    case QAccessible::ObjectDestroyed:
        return "gone";
    case QAccessible::ObjectShow:
        return "shown";
    case QAccessible::ObjectHide:
        return "hidden";
    case QAccessible::ObjectReorder:
        return "order";
    case QAccessible::NameChanged:
        return "name";
    case QAccessible::DescriptionChanged:
        return "description";
    default:
        return "something";
    }
}

AccessibleTile app(std::uint32_t id, const std::string& name, bool isRunning = false) {
    const double x = 10.0 + 50.0 * id;
    return {.id = id,
            .label = name,
            .value = isRunning ? "running" : "not running",
            .frame = {x, 30, 44, 44},
            .hasMenu = true};
}

AccessibleTile trash(std::uint32_t id) {
    AccessibleTile tile = app(id, "Trash");
    tile.value.reset();
    tile.hasMenu = false;
    return tile;
}

class AccessibleDockTest : public test::WindowTest {
protected:
    /// The dock's interface, looked up through Qt from the application down.
    static QAccessibleInterface* interfaceOf(const std::string& monitor) {
        auto* const program = QAccessible::queryAccessibleInterface(qGuiApp);
        const std::string title = "Vireline dock #" + std::to_string(idOf(monitor));
        for (int i = 0; i < program->childCount(); ++i) {
            auto* const child = program->child(i);
            if (child->window() != nullptr && child->window()->title().toStdString() == title)
                return child;
        }
        return nullptr;
    }

    static QAccessibleInterface* tile(int index) { return interfaceOf("main")->child(index); }
    static QAccessible::Id idOfTile(int index) { return QAccessible::uniqueId(tile(index)); }

    void showTiles(std::vector<AccessibleTile> tiles, const std::string& monitor = "main") {
        log.tiles = std::move(tiles);
        if (!dock) {
            dock = showDock(monitor, log);
            // Notifies existing interfaces, as Qt does when assistive technology starts.
            QAccessible::setActive(true);
        }
        dock->present(dockScene());
    }

    static Words names() {
        Words found;
        auto* const root = interfaceOf("main");
        for (int i = 0; i < root->childCount(); ++i)
            found.push_back(root->child(i)->text(QAccessible::Name).toStdString());
        return found;
    }

    EventLog log;
    std::unique_ptr<PanelWindow> dock;
};

TEST_F(AccessibleDockTest, IsAWindowOfTheProgram) {
    showTiles({app(1, "Alpha")});

    auto* const root = interfaceOf("main");
    ASSERT_NE(root, nullptr);
    EXPECT_TRUE(root->isValid());
    EXPECT_EQ(root->role(), QAccessible::Window);
    EXPECT_EQ(root->text(QAccessible::Name), QStringLiteral("Vireline dock on main"));
    EXPECT_EQ(root->parent(), QAccessible::queryAccessibleInterface(qGuiApp));
    EXPECT_FALSE(root->state().invisible);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(root->object()), root);
}

TEST_F(AccessibleDockTest, IsNamedAfterItsDisplay) {
    EventLog otherLog;
    const auto other = showDock("dense", otherLog);
    showTiles({app(1, "Alpha")});

    const auto nameOn = [](const char* monitor) {
        return interfaceOf(monitor)->text(QAccessible::Name).toStdString();
    };
    EXPECT_EQ(nameOn("main"), "Vireline dock on main");
    EXPECT_EQ(nameOn("dense"), "Vireline dock on dense");
}

TEST_F(AccessibleDockTest, HasAButtonForEachTile) {
    showTiles({app(1, "Alpha", true), app(2, "Beta"), trash(3)});

    auto* const root = interfaceOf("main");
    ASSERT_EQ(names(), (Words{"Alpha", "Beta", "Trash"}));
    const std::array values{"running", "not running", ""};
    for (int i = 0; i < 3; ++i) {
        auto* const button = root->child(i);
        EXPECT_EQ(button->role(), QAccessible::Button);
        EXPECT_EQ(button->text(QAccessible::Description).toStdString(),
                  values.at(static_cast<std::size_t>(i)));
        EXPECT_EQ(button->parent(), root);
        EXPECT_EQ(root->indexOfChild(button), i);
        EXPECT_EQ(button->window(), root->window());
        EXPECT_FALSE(button->state().invisible);
        EXPECT_FALSE(button->state().disabled);
    }
    EXPECT_EQ(root->child(3), nullptr);
    EXPECT_EQ(root->child(-1), nullptr);
}

TEST_F(AccessibleDockTest, PlacesItsTilesWhereTheyAreOnTheScreen) {
    showTiles({app(1, "Alpha"), app(2, "Beta")});

    auto* const root = interfaceOf("main");
    EXPECT_EQ(root->rect(), QRect(1720, 1012, 400, 84));
    EXPECT_EQ(tile(0)->rect(), QRect(1720 + 60, 1012 + 30, 44, 44));
    EXPECT_EQ(root->childAt(1720 + 60, 1012 + 30), tile(0));
    EXPECT_EQ(root->childAt(1720 + 120, 1012 + 40), tile(1));
    EXPECT_EQ(root->childAt(1720 + 106, 1012 + 40), nullptr) << "between two tiles";
}

TEST_F(AccessibleDockTest, PlacesThemInQtsCoordinatesOnADenseDisplay) {
    showTiles({app(1, "Alpha")}, "dense");

    // The display's corner is at (2560, 0), and two of its pixels are one of Qt's.
    EXPECT_EQ(interfaceOf("dense")->child(0)->rect(),
              QRect(2560 + 384 - 200 + 60, 512 + 30, 44, 44));
}

TEST_F(AccessibleDockTest, AppsCanBePressedAndAskedForTheirMenu) {
    showTiles({app(7, "Alpha")});
    auto* const actions = tile(0)->actionInterface();
    ASSERT_NE(actions, nullptr);
    EXPECT_EQ(actions->actionNames(), (QStringList{QAccessibleActionInterface::pressAction(),
                                                   QAccessibleActionInterface::showMenuAction()}));
    log.words.clear();

    actions->doAction(QAccessibleActionInterface::pressAction());
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(log.words, Words{}) << "the asker waits for what the action does";

    settle();
    EXPECT_EQ(log.words, (Words{"tile 7", "menu 7"}));
}

TEST_F(AccessibleDockTest, ATileWithoutAMenuOnlyPresses) {
    showTiles({trash(3)});
    auto* const actions = tile(0)->actionInterface();
    EXPECT_EQ(actions->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    log.words.clear();

    actions->doAction(QAccessibleActionInterface::showMenuAction());
    actions->doAction(QStringLiteral("no such thing"));
    actions->doAction(QAccessibleActionInterface::pressAction());

    settle();
    EXPECT_EQ(log.words, Words{"tile 3"});
}

TEST_F(AccessibleDockTest, APressThatIsOutstandingEndsWithTheDock) {
    showTiles({app(1, "Alpha")});
    log.words.clear();
    tile(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

    dock.reset();

    settle();
    EXPECT_FALSE(log.has("tile 1"));
}

TEST_F(AccessibleDockTest, ATileIsTheSameForAsLongAsItStays) {
    showTiles({app(1, "Alpha"), app(2, "Beta"), app(3, "Gamma")});
    const auto alpha = idOfTile(0);
    const auto beta = idOfTile(1);
    const auto gamma = idOfTile(2);

    showTiles({app(3, "Gamma"), app(4, "Delta"), app(1, "Alpha", true)});

    EXPECT_EQ(names(), (Words{"Gamma", "Delta", "Alpha"}));
    EXPECT_EQ(idOfTile(0), gamma);
    EXPECT_EQ(idOfTile(2), alpha);
    EXPECT_EQ(QAccessible::accessibleInterface(beta), nullptr) << "it is gone";
}

TEST_F(AccessibleDockTest, TilesAreNotRequestedWithoutAssistiveTechnology) {
    showTiles({app(1, "Alpha")});
    const auto button = idOfTile(0);
    QAccessible::setActive(false);
    const int before = log.tilesAsked;

    showTiles({app(2, "Beta")});

    EXPECT_EQ(log.tilesAsked, before);
    EXPECT_EQ(QAccessible::accessibleInterface(button), nullptr);
}

TEST_F(AccessibleDockTest, IsUpToDateWhenAssistiveTechnologyComesLater) {
    showTiles({app(1, "Alpha")});
    QAccessible::setActive(false);
    showTiles({app(2, "Beta")});
    EXPECT_EQ(names(), Words{"Beta"}) << "queried without a listener";
    log.tiles = {app(3, "Gamma")};

    QAccessible::setActive(true);

    EXPECT_EQ(names(), Words{"Gamma"});
}

/// A dock in a window without a display, with its accessibility events recorded.
class AccessibleEventsTest : public test::WindowTest {
protected:
    void present(std::vector<AccessibleTile> tiles) {
        log.tiles = std::move(tiles);
        dock->refresh();
    }

    Words told() { return std::exchange(told_, {}); }

    EventLog log;
    QWindow window;

private:
    Words told_;

protected:
    std::unique_ptr<xdg::AccessibleDock> dock =
        std::make_unique<xdg::AccessibleDock>(xdg::DockAccess{
            window, log, "Vireline dock on main", [](const Rect&) { return QRect{}; },
            [this](const QAccessibleInterface& about, QAccessible::Event what) {
                told_.push_back(wordOf(what) + ' ' + about.text(QAccessible::Name).toStdString());
            }});
};

TEST_F(AccessibleEventsTest, TellThatADockComesAndGoes) {
    QAccessible::setActive(true);
    present({app(1, "Alpha")});
    EXPECT_EQ(told(), Words{"new Vireline dock on main"});

    dock->setShown(true);
    EXPECT_EQ(told(), Words{"shown Vireline dock on main"});

    dock->setShown(false);
    EXPECT_EQ(told(), Words{"hidden Vireline dock on main"});

    dock.reset();
    EXPECT_EQ(told(), Words{"gone Vireline dock on main"});
}

TEST_F(AccessibleEventsTest, TellWhatIsNewOfTheTiles) {
    QAccessible::setActive(true);
    present({app(1, "Alpha"), app(2, "Beta"), app(3, "Gamma")});
    told();

    present({app(1, "Alpha", true), app(2, "Beta Two"), app(3, "Gamma")});
    EXPECT_EQ(told(), (Words{"description Alpha", "name Beta Two"}));

    present({app(1, "Alpha", true), app(3, "Gamma"), app(4, "Delta")});
    EXPECT_EQ(told(), (Words{"gone Beta Two", "new Delta"}));

    present({app(3, "Gamma"), app(1, "Alpha", true), app(4, "Delta")});
    EXPECT_EQ(told(), Words{"order Vireline dock on main"});

    present({});
    EXPECT_EQ(told(), (Words{"gone Gamma", "gone Alpha", "gone Delta"}));
}

TEST_F(AccessibleEventsTest, TellNothingWhenOnlyPlacesChange) {
    QAccessible::setActive(true);
    present({app(1, "Alpha")});
    told();
    AccessibleTile moved = app(1, "Alpha");
    moved.frame.x += 20;

    present({moved});

    EXPECT_EQ(told(), Words{});
}

TEST_F(AccessibleEventsTest, TellNothingWithoutAssistiveTechnology) {
    QAccessible::setActive(false);
    present({app(1, "Alpha")});
    present({app(2, "Beta")});
    window.setVisible(true);

    EXPECT_EQ(told(), Words{});
}

}
}
