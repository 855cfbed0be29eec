#include "ClientWindows/PlasmaWindowList.hpp"
#include "Wayland/ClientWindows/WindowListTest.hpp"
#include "Wayland/Fakes/FakePlasmaWindows.hpp"

#include <array>

namespace vireline::wayland {
namespace {

using Fake = FakePlasmaWindows;

class PlasmaWindowListTest : public WindowListTest<PlasmaWindowList, FakePlasmaWindows> {
protected:
    [[nodiscard]] std::unique_ptr<PlasmaWindowList> makeList() override {
        return PlasmaWindowList::create(*connection_, ownAppID);
    }
};

TEST_F(PlasmaWindowListTest, KnowsTheWindowsFromTheStartOldestFirst) {
    fake_.add("org.example.a", Fake::active);
    fake_.add("org.example.b", Fake::minimised | Fake::urgent);

    open();

    EXPECT_EQ(classesOf(*list_), (Texts{"org.example.a", "org.example.b"}));
    EXPECT_EQ(list_->activeWindow(), window(0).id);
    EXPECT_FALSE(window(0).isHidden);
    EXPECT_FALSE(window(0).isUrgent);
    EXPECT_TRUE(window(1).isHidden);
    EXPECT_TRUE(window(1).isUrgent);
    EXPECT_TRUE(window(1).isOrdinary);
    EXPECT_EQ(window(1).processIdentifier, 1001);
}

TEST_F(PlasmaWindowListTest, TakesHigherWindowsToHaveBeenActiveLater) {
    fake_.add("org.example.a");
    fake_.add("org.example.b", Fake::active);
    fake_.add("org.example.c");
    fake_.setStacking("2;1;unknown;0");

    open();

    EXPECT_GT(window(0).lastActive, window(2).lastActive);
    EXPECT_GT(window(1).lastActive, window(0).lastActive);
    EXPECT_EQ(list_->activeWindow(), window(1).id);
}

TEST_F(PlasmaWindowListTest, MayHaveNoActiveWindow) {
    fake_.add("org.example.a");
    fake_.setStacking("0");

    open();

    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
}

TEST_F(PlasmaWindowListTest, ListsAWindowOnceItIsDescribed) {
    open();
    const auto incomplete = fake_.add("org.example.a", 0, /*isComplete=*/false);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{});
    EXPECT_EQ(changes_, 0);

    fake_.complete(incomplete);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{"org.example.a"});
}

TEST_F(PlasmaWindowListTest, AnnouncesOnlyWhatMatters) {
    const auto only = fake_.add("org.example.a");
    open();

    fake_.setFlags(only, Fake::maximised);
    fake_.setTitle(only, "Another");
    fake_.setFrame(only, 1, 2, 300, 200);
    sync();
    EXPECT_EQ(changes_, 0);

    fake_.setFlags(only, Fake::urgent);
    sync();
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(list_->titles(std::array{window(0).id}), Texts{"Another"});
    EXPECT_EQ(list_->details(window(0).id), (KWinWindow{.uuid = "0", .frame = {1, 2, 300, 200}}));
}

TEST_F(PlasmaWindowListTest, LeavesOutWindowsThatTaskbarsSkip) {
    const auto panel = fake_.add("org.example.panel", Fake::skipped);
    const auto dialog = fake_.add("org.example.a");
    open();
    EXPECT_EQ(classesOf(*list_), Texts{"org.example.a"});

    fake_.setParent(dialog, panel);
    sync();
    EXPECT_TRUE(window(0).isDialog);
    fake_.setFlags(dialog, Fake::skipped);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{});
}

TEST_F(PlasmaWindowListTest, SendsTheProtocolsRequests) {
    fake_.add("org.example.a");
    fake_.add("org.example.b");
    open();
    const auto id = window(1).id;

    list_->iconify(id);
    list_->restore(id);
    list_->activate(id);
    list_->close(id);

    EXPECT_EQ(requests(),
              (Texts{"1 set_state 2 2", "1 set_state 2 0", "1 set_state 1 1", "1 close"}));
}

TEST_F(PlasmaWindowListTest, KnowsNoDetailsOfAWindowThatIsGone) {
    fake_.add("org.example.a");
    open();
    const auto id = window(0).id;
    EXPECT_NE(list_->details(id), std::nullopt);

    fake_.close(0);
    sync();
    EXPECT_EQ(list_->details(id), std::nullopt);
}

TEST(PlasmaWindowList, IsThereOnlyWhereWindowsAreNamedByUUID) {
    for (const int version : {12, 13}) {
        FakeCompositor compositor;
        FakePlasmaWindows windows{compositor, version};
        const auto display = compositor.connect();
        const WaylandConnection connection{display.get()};
        EXPECT_EQ(PlasmaWindowList::create(connection, "ours") != nullptr, version == 13);
    }
}

}
}
