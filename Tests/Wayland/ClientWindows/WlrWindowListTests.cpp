#include "ClientWindows/WlrWindowList.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "Wayland/ClientWindows/WindowListTest.hpp"
#include "Wayland/Compositors/SwayTest.hpp"
#include "Wayland/Fakes/FakeToplevels.hpp"

#include <algorithm>

namespace vireline::wayland {
namespace {

using State = FakeToplevels::State;

class WlrWindowListTest : public WindowListTest<WlrWindowList, FakeToplevels> {
protected:
    [[nodiscard]] std::unique_ptr<WlrWindowList> makeList() override {
        seat_ = connection_->bind<wl_seat>(wl_seat_interface, 1);
        return WlrWindowList::create(*connection_, ownAppID, [this] { return seat_.get(); });
    }

    Proxy<wl_seat> seat_;
};

TEST_F(WlrWindowListTest, KnowsTheWindowsFromTheStartOldestFirst) {
    fake_.add("org.example.a", "A", {State::activated});
    fake_.add("org.example.b", "B", {State::minimised, State::maximised});

    open();

    EXPECT_EQ(classesOf(*list_), (Texts{"org.example.a", "org.example.b"}));
    EXPECT_EQ(list_->activeWindow(), window(0).id);
    EXPECT_GT(window(0).lastActive, 0U);
    EXPECT_FALSE(window(0).isHidden);
    EXPECT_TRUE(window(1).isHidden);
    EXPECT_TRUE(window(1).isOrdinary);
}

TEST_F(WlrWindowListTest, KnowsWhichWindowWasActiveLast) {
    const auto first = fake_.add("org.example.a", "A", {State::activated});
    const auto second = fake_.add("org.example.b", "B");
    open();

    fake_.setStates(first, {});
    fake_.setStates(second, {State::activated});
    sync();

    EXPECT_EQ(list_->activeWindow(), window(1).id);
    EXPECT_GT(window(1).lastActive, window(0).lastActive);
    // Compositors may report the new one first.
    fake_.setStates(first, {State::activated});
    fake_.setStates(second, {});
    sync();
    EXPECT_EQ(list_->activeWindow(), window(0).id);
    EXPECT_GT(window(0).lastActive, window(1).lastActive);
}

TEST_F(WlrWindowListTest, AnnouncesOnlyWhatMatters) {
    const auto first = fake_.add("org.example.a", "A");
    open();

    fake_.setStates(first, {State::maximised});
    fake_.setAppID(first, "org.example.a");
    sync();
    EXPECT_EQ(changes_, 0);

    fake_.setStates(first, {State::minimised});
    sync();
    EXPECT_EQ(changes_, 1);
}

TEST_F(WlrWindowListTest, SendsTheProtocolsRequests) {
    compositor_.offer(wl_seat_interface, 1);
    fake_.add("org.example.a", "A");
    fake_.add("org.example.b", "B");
    open();
    const auto id = window(1).id;

    list_->iconify(id);
    list_->restore(id);
    list_->activate(id);
    list_->close(id);

    EXPECT_EQ(requests(), (Texts{"1 set_minimized", "1 unset_minimized", "1 activate", "1 close"}));
}

TEST_F(WlrWindowListTest, ActivatesNothingWithoutASeat) {
    fake_.add("org.example.a", "A");
    open();

    list_->activate(window(0).id);

    EXPECT_EQ(requests(), Texts{});
}

TEST_F(WlrWindowListTest, KnowsTitles) {
    fake_.add("org.example.a", "A");
    fake_.add("org.example.a", "");
    open();
    const std::vector ids{window(1).id, window(0).id, xdg::WindowID{4711}};

    EXPECT_EQ(list_->titles(ids), (Texts{"", "A", ""}));
}

TEST_F(WlrWindowListTest, KnowsDialogsByTheirParents) {
    fake_.add("org.example.a", "A");
    const auto dialog = fake_.add("org.example.a", "Save?");
    open();

    fake_.setParent(dialog, 0);
    sync();

    EXPECT_FALSE(window(0).isDialog);
    EXPECT_TRUE(window(1).isDialog);
}

TEST_F(WlrWindowListTest, IsEmptyOnceTheCompositorListsNoMore) {
    fake_.add("org.example.a", "A", {State::activated});
    open();

    fake_.finish();
    sync();

    EXPECT_TRUE(list_->windows().empty());
    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
    EXPECT_EQ(changes_, 1);
}

TEST(WlrWindowListCreation, FailsIfTheCompositorListsNoWindows) {
    FakeCompositor compositor;
    const auto display = compositor.connect();
    const WaylandConnection connection{display.get()};

    EXPECT_EQ(WlrWindowList::create(connection, "", [] { return nullptr; }), nullptr);
}

/// The same protocol as sway has it.
class WlrWindowListUnderSway : public SwayTest {
protected:
    void SetUp() override {
        display_.reset(wl_display_connect(desk().display().c_str()));
        ASSERT_NE(display_, nullptr);
        connection_.emplace(display_.get());
    }
    void TearDown() override {
        list_.reset();
        connection_.reset();
        display_.reset();
        SwayTest::TearDown();
    }
    void open() {
        list_ = WlrWindowList::create(*connection_, "", [] { return nullptr; });
        ASSERT_NE(list_, nullptr);
    }
    [[nodiscard]] bool eventually(const std::function<bool()>& condition) const {
        return desktop::eventually([&] {
            wl_display_roundtrip(display_.get());
            return condition();
        });
    }

    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    std::unique_ptr<WlrWindowList> list_;
};

TEST_F(WlrWindowListUnderSway, ListsWindowsOldestFirstAndKnowsTheActiveOne) {
    desk().run({"--class", "org.example.a"});
    EXPECT_TRUE(desktop::eventually([] { return !desk().windows("org.example.a").empty(); }));
    desk().run({"--class", "org.example.b"});
    EXPECT_TRUE(desktop::eventually([] { return !desk().windows("org.example.b").empty(); }));

    open();

    EXPECT_EQ(classesOf(*list_), (Texts{"org.example.a", "org.example.b"}));
    EXPECT_EQ(list_->activeWindow(), list_->windows().at(1).id);
    desk().command("[app_id=org.example.a] focus");
    EXPECT_TRUE(eventually([this] { return list_->activeWindow() == list_->windows().at(0).id; }));
}

TEST_F(WlrWindowListUnderSway, ClosesAWindow) {
    open();
    auto& process = desk().run({"--class", "org.example.a"});
    EXPECT_TRUE(eventually([this] { return list_->windows().size() == 1; }));

    list_->close(list_->windows().at(0).id);
    list_->flush();

    EXPECT_TRUE(eventually([this] { return list_->windows().empty(); }));
    EXPECT_EQ(process.waitForExit(), 0);
}

}
}
