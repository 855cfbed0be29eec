#include "ClientWindows/PlasmaWindowList.hpp"
#include "FakePlasmaWindows.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>

#include <optional>
#include <string>

namespace vireline::wayland {
namespace {

using Fake = FakePlasmaWindows;
using Texts = std::vector<std::string>;

Texts classesOf(const PlasmaWindowList& list) {
    Texts names;
    for (const xdg::ClientWindow& window : list.windows())
        names.push_back(window.traits.className);
    return names;
}

/// A list under the fake compositor. Events are dispatched by `sync` only.
class PlasmaWindowListTest : public testing::Test {
protected:
    void open() {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        list_ = PlasmaWindowList::create(*connection_, "org.example.ours");
        watch_ = list_->observe([this] { ++changes_; });
    }
    void TearDown() override {
        watch_.reset();
        list_.reset();
        connection_.reset();
        display_.reset();
    }
    /// Twice, since a window is described when the list has asked for it.
    void sync() const {
        wl_display_roundtrip(display_.get());
        wl_display_roundtrip(display_.get());
    }
    [[nodiscard]] const xdg::ClientWindow& window(std::size_t index) const {
        return list_->windows().at(index);
    }
    Texts requests() {
        list_->flush();
        sync();
        return plasma_.requests();
    }

    FakeCompositor compositor_;
    FakePlasmaWindows plasma_{compositor_};
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    std::unique_ptr<PlasmaWindowList> list_;
    int changes_ = 0;
    Subscription watch_;
};

TEST_F(PlasmaWindowListTest, KnowsTheWindowsFromTheStartOldestFirst) {
    plasma_.add("org.example.a", Fake::active);
    plasma_.add("org.example.b", Fake::minimised | Fake::urgent);

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
    plasma_.add("org.example.a");
    plasma_.add("org.example.b", Fake::active);
    plasma_.add("org.example.c");
    plasma_.setStacking("2;1;unknown;0");

    open();

    EXPECT_GT(window(0).lastActive, window(2).lastActive);
    EXPECT_GT(window(1).lastActive, window(0).lastActive);
    EXPECT_EQ(list_->activeWindow(), window(1).id);
}

TEST_F(PlasmaWindowListTest, KnowsNoActiveWindowIfThatIsSo) {
    plasma_.add("org.example.a");
    plasma_.setStacking("0");

    open();

    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
}

TEST_F(PlasmaWindowListTest, FollowsWindowsAsTheyComeChangeAndGo) {
    open();
    const auto first = plasma_.add("org.example.a", Fake::active);
    plasma_.add("org.example.b");
    sync();
    EXPECT_EQ(classesOf(*list_), (Texts{"org.example.a", "org.example.b"}));

    plasma_.setAppID(first, "org.example.c");
    sync();
    EXPECT_EQ(classesOf(*list_), (Texts{"org.example.c", "org.example.b"}));

    plasma_.close(first);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{"org.example.b"});
    EXPECT_EQ(list_->activeWindow(), xdg::WindowID::none);
    EXPECT_EQ(requests(), Texts{"0 destroy"});
}

TEST_F(PlasmaWindowListTest, ListsAWindowOnceItIsDescribed) {
    open();
    const auto incomplete = plasma_.add("org.example.a", 0, /*isComplete=*/false);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{});
    EXPECT_EQ(changes_, 0);

    plasma_.complete(incomplete);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{"org.example.a"});
}

TEST_F(PlasmaWindowListTest, AnnouncesOnlyWhatMatters) {
    const auto only = plasma_.add("org.example.a");
    open();

    plasma_.setFlags(only, Fake::maximised);
    plasma_.setTitle(only, "Another");
    plasma_.setFrame(only, 1, 2, 300, 200);
    sync();
    EXPECT_EQ(changes_, 0);

    plasma_.setFlags(only, Fake::urgent);
    sync();
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(list_->titles(std::array{window(0).id}), Texts{"Another"});
    EXPECT_EQ(list_->details(window(0).id), (KWinWindow{.uuid = "0", .frame = {1, 2, 300, 200}}));
}

TEST_F(PlasmaWindowListTest, LeavesOutItsOwnWindowsAndThoseThatTaskbarsSkip) {
    plasma_.add("org.example.ours");
    plasma_.add("org.example.panel", Fake::skipped);
    const auto dialog = plasma_.add("org.example.a");
    open();
    EXPECT_EQ(classesOf(*list_), Texts{"org.example.a"});

    plasma_.setParent(dialog, 1);
    sync();
    EXPECT_TRUE(window(0).isDialog);
    plasma_.setFlags(dialog, Fake::skipped);
    sync();
    EXPECT_EQ(classesOf(*list_), Texts{});
}

TEST_F(PlasmaWindowListTest, RequestsWhatTheProtocolHasForIt) {
    plasma_.add("org.example.a");
    plasma_.add("org.example.b");
    open();
    const auto id = window(1).id;

    list_->iconify(id);
    list_->restore(id);
    list_->activate(id);
    list_->close(id);

    EXPECT_EQ(requests(),
              (Texts{"1 set_state 2 2", "1 set_state 2 0", "1 set_state 1 1", "1 close"}));
}

TEST_F(PlasmaWindowListTest, RequestsNothingForAWindowThatIsGone) {
    plasma_.add("org.example.a");
    open();
    const auto id = window(0).id;
    plasma_.close(0);
    sync();

    list_->iconify(id);
    list_->activate(id);
    list_->close(id);

    EXPECT_EQ(requests(), Texts{"0 destroy"});
    EXPECT_EQ(list_->titles(std::array{id}), Texts{""});
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
