#include "ClientWindows/WlrWindowList.hpp"
#include "FakeToplevels.hpp"
#include "SwayTest.hpp"
#include "VirtualDesktop/Waiting.hpp"

#include <wayland-client.h>

#include <algorithm>
#include <string>

namespace vireline::wayland {
namespace {

using State = FakeToplevels::State;
using Strings = std::vector<std::string>;

Strings classes(const WlrWindowList& list) {
    Strings names;
    for (const xdg::ClientWindow& window : list.windows())
        names.push_back(window.traits.className);
    return names;
}

/// A list under the fake compositor. Events are dispatched by `sync` only.
class WlrWindowListTest : public testing::Test {
protected:
    void open() {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        seat_ = connection_->bind<wl_seat>(wl_seat_interface, 1);
        list_ =
            WlrWindowList::create(*connection_, "org.example.ours", [this] { return seat_.get(); });
        watch_ = list_->observe([this] { ++changes_; });
    }
    void TearDown() override {
        watch_.reset();
        list_.reset();
        seat_.reset();
        connection_.reset();
        display_.reset();
    }
    void sync() const { wl_display_roundtrip(display_.get()); }
    [[nodiscard]] const xdg::ClientWindow& window(std::size_t index) const {
        return list_->windows().at(index);
    }
    Strings requests() {
        list_->flush();
        sync();
        return toplevels_.requests();
    }

    FakeCompositor compositor_;
    FakeToplevels toplevels_{compositor_};
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    Proxy<wl_seat> seat_;
    std::unique_ptr<WlrWindowList> list_;
    int changes_ = 0;
    Subscription watch_;
};

TEST_F(WlrWindowListTest, KnowsTheWindowsFromTheStartOldestFirst) {
    toplevels_.add("org.example.a", "A", {State::activated});
    toplevels_.add("org.example.b", "B", {State::minimised, State::maximised});

    open();

    EXPECT_EQ(classes(*list_), (Strings{"org.example.a", "org.example.b"}));
    EXPECT_EQ(list_->activeWindow(), window(0).id);
    EXPECT_GT(window(0).lastActive, 0U);
    EXPECT_FALSE(window(0).isHidden);
    EXPECT_TRUE(window(1).isHidden);
    EXPECT_TRUE(window(1).isOrdinary);
}

TEST_F(WlrWindowListTest, FollowsWindowsAsTheyComeChangeAndGo) {
    open();
    const auto first = toplevels_.add("org.example.a", "A", {State::activated});
    toplevels_.add("org.example.b", "B");
    sync();
    EXPECT_EQ(classes(*list_), (Strings{"org.example.a", "org.example.b"}));

    toplevels_.setAppID(first, "org.example.c");
    sync();
    EXPECT_EQ(classes(*list_), (Strings{"org.example.c", "org.example.b"}));

    toplevels_.close(first);
    sync();
    EXPECT_EQ(classes(*list_), Strings{"org.example.b"});
    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
    EXPECT_EQ(requests(), Strings{"0 destroy"});
}

TEST_F(WlrWindowListTest, KnowsWhichWindowWasActiveLast) {
    const auto first = toplevels_.add("org.example.a", "A", {State::activated});
    const auto second = toplevels_.add("org.example.b", "B");
    open();

    toplevels_.setStates(first, {});
    toplevels_.setStates(second, {State::activated});
    sync();

    EXPECT_EQ(list_->activeWindow(), window(1).id);
    EXPECT_GT(window(1).lastActive, window(0).lastActive);
    // Compositors may report the new one first.
    toplevels_.setStates(first, {State::activated});
    toplevels_.setStates(second, {});
    sync();
    EXPECT_EQ(list_->activeWindow(), window(0).id);
    EXPECT_GT(window(0).lastActive, window(1).lastActive);
}

TEST_F(WlrWindowListTest, AnnouncesOnlyWhatMatters) {
    const auto first = toplevels_.add("org.example.a", "A");
    open();

    toplevels_.setStates(first, {State::maximised});
    toplevels_.setAppID(first, "org.example.a");
    sync();
    EXPECT_EQ(changes_, 0);

    toplevels_.setStates(first, {State::minimised});
    sync();
    EXPECT_EQ(changes_, 1);
}

TEST_F(WlrWindowListTest, RequestsWhatTheProtocolHasForIt) {
    compositor_.offer(wl_seat_interface, 1);
    toplevels_.add("org.example.a", "A");
    toplevels_.add("org.example.b", "B");
    open();
    const auto id = window(1).id;

    list_->iconify(id);
    list_->restore(id);
    list_->activate(id);
    list_->close(id);

    EXPECT_EQ(requests(),
              (Strings{"1 set_minimized", "1 unset_minimized", "1 activate", "1 close"}));
}

TEST_F(WlrWindowListTest, RequestsNothingOfWindowsThatAreGone) {
    const auto first = toplevels_.add("org.example.a", "A");
    open();
    const auto id = window(0).id;
    toplevels_.close(first);
    sync();

    list_->iconify(id);
    list_->restore(id);
    list_->activate(id);
    list_->close(id);

    EXPECT_EQ(requests(), Strings{"0 destroy"});
}

TEST_F(WlrWindowListTest, ActivatesNothingWithoutASeat) {
    toplevels_.add("org.example.a", "A");
    open();

    list_->activate(window(0).id);

    EXPECT_EQ(requests(), Strings{});
}

TEST_F(WlrWindowListTest, LeavesTheProgramsOwnWindowsOut) {
    toplevels_.add("org.example.ours", "Settings", {State::activated});
    open();

    EXPECT_TRUE(list_->windows().empty());
    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
}

TEST_F(WlrWindowListTest, ListsWindowsWithoutAnID) {
    toplevels_.add("", "");
    open();

    EXPECT_EQ(classes(*list_), Strings{""});
}

TEST_F(WlrWindowListTest, BoundsAndCleansWhatWindowsSayOfThemselves) {
    toplevels_.add(std::string(3000, 'x') + "\n", std::string(3000, 'y'));
    toplevels_.add("bad \xff\x01 bytes", "A");
    open();

    EXPECT_EQ(window(0).traits.className.size(), 256U);
    EXPECT_EQ(window(1).traits.className.find('\x01'), std::string::npos);
}

TEST_F(WlrWindowListTest, KnowsTitles) {
    toplevels_.add("org.example.a", "A");
    toplevels_.add("org.example.a", "");
    open();
    const std::vector ids{window(1).id, window(0).id, xdg::WindowID{4711}};

    EXPECT_EQ(list_->titles(ids), (Strings{"", "A", ""}));
}

TEST_F(WlrWindowListTest, KnowsDialogsByTheirParents) {
    toplevels_.add("org.example.a", "A");
    const auto dialog = toplevels_.add("org.example.a", "Save?");
    open();

    toplevels_.setParent(dialog, 0);
    sync();

    EXPECT_FALSE(window(0).isDialog);
    EXPECT_TRUE(window(1).isDialog);
}

TEST_F(WlrWindowListTest, IsEmptyOnceTheCompositorListsNoMore) {
    toplevels_.add("org.example.a", "A", {State::activated});
    open();

    toplevels_.finish();
    sync();

    EXPECT_TRUE(list_->windows().empty());
    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
    EXPECT_EQ(changes_, 1);
}

TEST_F(WlrWindowListTest, SurvivesTheCompositor) {
    toplevels_.add("org.example.a", "A");
    open();
    const auto id = window(0).id;

    compositor_.die();
    sync();

    list_->activate(id);
    list_->close(id);
    list_->flush();
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

    EXPECT_EQ(classes(*list_), (Strings{"org.example.a", "org.example.b"}));
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
