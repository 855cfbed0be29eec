// A menu of a dock: when it opens, what closes it, and what it says then.
#include "Cocoa/Paper.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Panels/PopUpMenu.hpp"
#include "Unseen.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

class Menus : public testing::Test, private NonCopyable {
protected:
    Menus() {
        @autoreleasepool {
            view = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)];
        }
    }
    ~Menus() override {
        paper::answerMenus(nullptr);
        EXPECT_EQ(unseenFaults(), std::vector<std::string>{});
    }

    MenuCommand command(const std::string& title) {
        return {.title = title, .action = [this, title] { choice = title; }};
    }
    void open() {
        @autoreleasepool {
            menu = PopUpMenu::open({{command("First"), command("Second")}}, view, {},
                                   [this](const MenuAction& chosen) {
                                       ++closed;
                                       if (chosen)
                                           chosen();
                                   });
        }
    }
    static void turn() {
        @autoreleasepool {
            paper::drain();
        }
    }
    /// Does that while the menu is open, and then chooses the second entry.
    void whileOpen(std::function<void(NSMenu*)> happens) {
        paper::answerMenus([this, happens = std::move(happens)](NSMenu* native) {
            ++opened;
            happens(native);
            return paper::itemTitled(native, "Second");
        });
    }

    NSView* view = nil;
    std::shared_ptr<PopUpMenu> menu;
    int opened = 0;
    int closed = 0;
    std::optional<std::string> choice;
};

TEST_F(Menus, OpenInTheNextTurnAndTellWhatWasChosen) {
    whileOpen([this](NSMenu* native) {
        EXPECT_TRUE(native.paperIsTracking);
        EXPECT_EQ(closed, 0);
    });
    open();
    EXPECT_EQ(opened, 0);
    turn();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(choice, "Second");
}

TEST_F(Menus, TellWhatWasChosenFromASubmenu) {
    paper::answerMenus([](NSMenu* native) {
        NSMenu* const more = paper::itemTitled(native, "More").submenu;
        return more == nil ? nil : paper::itemTitled(more, "Inner");
    });
    @autoreleasepool {
        const MenuSubmenu more{.title = "More", .entries = {command("Inner")}};
        menu = PopUpMenu::open({{command("First"), more}}, view, {}, [](const MenuAction& chosen) {
            if (chosen)
                chosen();
        });
    }
    turn();
    EXPECT_EQ(choice, "Inner");
}

TEST_F(Menus, CloseBeforeTheirEndIsToldOf) {
    whileOpen([this](NSMenu* native) {
        menu->end();
        EXPECT_FALSE(native.paperIsTracking);
        EXPECT_EQ(closed, 1);
    });
    open();
    turn();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(choice, std::nullopt);
}

TEST_F(Menus, CloseWithoutAWordWhenTheyAreDropped) {
    whileOpen([this](NSMenu* native) {
        menu.reset();
        EXPECT_FALSE(native.paperIsTracking);
    });
    open();
    turn();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(closed, 0);
}

TEST_F(Menus, DoNotOpenInAViewThatIsGoneByThen) {
    whileOpen([](NSMenu*) {});
    @autoreleasepool {
        open();
        view = nil;
    }
    turn();
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(choice, std::nullopt);
}

TEST_F(Menus, DoNotOpenOnceTheyAreDropped) {
    whileOpen([](NSMenu*) {});
    open();
    menu.reset();
    turn();
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(closed, 0);
}

TEST_F(Menus, EndOnceOnly) {
    whileOpen([](NSMenu*) {});
    open();
    menu->end();
    menu->end();
    turn();
    EXPECT_EQ(closed, 1);
}

}
}
