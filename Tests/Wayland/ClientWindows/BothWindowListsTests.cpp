/// What holds for the lists of windows of both protocols.
#include "ClientWindows/PlasmaWindowList.hpp"
#include "ClientWindows/WlrWindowList.hpp"
#include "Wayland/ClientWindows/WindowListTest.hpp"
#include "Wayland/Fakes/FakePlasmaWindows.hpp"
#include "Wayland/Fakes/FakeToplevels.hpp"

#include <algorithm>
#include <array>

namespace vireline::wayland {
namespace {

struct Wlroots {
    using List = WlrWindowList;
    using Fake = FakeToplevels;

    static std::unique_ptr<List> makeList(const WaylandConnection& connection, const char* own) {
        return WlrWindowList::create(connection, own, [] { return nullptr; });
    }
    static std::size_t addActive(Fake& fake, const std::string& appID) {
        return fake.add(appID, "", {Fake::State::activated});
    }
    static std::size_t add(Fake& fake, const std::string& appID) { return fake.add(appID, ""); }
};

struct KWin {
    using List = PlasmaWindowList;
    using Fake = FakePlasmaWindows;

    static std::unique_ptr<List> makeList(const WaylandConnection& connection, const char* own) {
        return PlasmaWindowList::create(connection, own);
    }
    static std::size_t addActive(Fake& fake, const std::string& appID) {
        return fake.add(appID, Fake::active);
    }
    static std::size_t add(Fake& fake, const std::string& appID) { return fake.add(appID); }
};

template <class Protocol>
class BothWindowLists : public WindowListTest<typename Protocol::List, typename Protocol::Fake> {
protected:
    [[nodiscard]] std::unique_ptr<typename Protocol::List> makeList() override {
        return Protocol::makeList(*this->connection_, this->ownAppID);
    }
    std::size_t add(const std::string& appID) { return Protocol::add(this->fake_, appID); }
    std::size_t addActive(const std::string& appID) {
        return Protocol::addActive(this->fake_, appID);
    }
    [[nodiscard]] Texts listed() const { return classesOf(*this->list_); }
    [[nodiscard]] std::string titleOf(std::size_t index) const {
        return this->list_->titles(std::array{this->window(index).id}).front();
    }
};

using Protocols = testing::Types<Wlroots, KWin>;
TYPED_TEST_SUITE(BothWindowLists, Protocols);

TYPED_TEST(BothWindowLists, FollowWindowsAsTheyComeChangeAndGo) {
    this->open();
    const auto first = this->addActive("org.example.a");
    this->add("org.example.b");
    this->sync();
    EXPECT_EQ(this->listed(), (Texts{"org.example.a", "org.example.b"}));

    this->fake_.setAppID(first, "org.example.c");
    this->sync();
    EXPECT_EQ(this->listed(), (Texts{"org.example.c", "org.example.b"}));

    this->fake_.close(first);
    this->sync();
    EXPECT_EQ(this->listed(), Texts{"org.example.b"});
    EXPECT_EQ(this->list_->activeWindow(), xdg::WindowID::none);
    EXPECT_EQ(this->requests(), Texts{"0 destroy"});
}

TYPED_TEST(BothWindowLists, RequestNothingForWindowsThatAreGone) {
    const auto only = this->add("org.example.a");
    this->open();
    const auto id = this->window(0).id;
    this->fake_.close(only);
    this->sync();

    this->list_->iconify(id);
    this->list_->restore(id);
    this->list_->activate(id);
    this->list_->close(id);

    EXPECT_EQ(this->requests(), Texts{"0 destroy"});
    EXPECT_EQ(this->list_->titles(std::array{id}), Texts{""});
}

TYPED_TEST(BothWindowLists, LeaveTheProgramsOwnWindowsOut) {
    this->addActive(this->ownAppID);
    this->open();

    EXPECT_EQ(this->listed(), Texts{});
    EXPECT_EQ(this->list_->activeWindow(), xdg::WindowID::none);
}

TYPED_TEST(BothWindowLists, ListWindowsWithoutAnAppID) {
    this->add("");
    this->open();
    this->addActive("");
    this->sync();

    EXPECT_EQ(this->listed(), (Texts{"", ""}));
    EXPECT_EQ(this->list_->activeWindow(), this->window(1).id);
}

TYPED_TEST(BothWindowLists, KeepAWindowThatTakesItsAppIDBack) {
    const auto only = this->add("org.example.a");
    this->open();

    this->fake_.setAppID(only, "");
    this->sync();

    EXPECT_EQ(this->listed(), Texts{""});
    EXPECT_EQ(this->requests(), Texts{});
}

/// The longest texts that fit into a message of the protocol.
TYPED_TEST(BothWindowLists, BoundTexts) {
    const std::string longest(4000, 'x');
    const auto only = this->add(longest);
    this->open();
    this->fake_.setTitle(only, longest);
    this->sync();

    EXPECT_EQ(this->listed(), Texts{std::string(256, 'x')});
    EXPECT_EQ(this->titleOf(0), std::string(256, 'x'));
}

TYPED_TEST(BothWindowLists, MakeTextsPlain) {
    const auto only = this->add("\x1b[31mred\n");
    this->open();
    this->fake_.setTitle(only, "caf\xe9 \x01\t\x7f!");
    this->sync();

    EXPECT_EQ(this->listed(), Texts{"[31mred"});
    EXPECT_EQ(this->titleOf(0), "caf\u00e9    !") << "not UTF-8, so it counts as Latin-1";
}

TYPED_TEST(BothWindowLists, DoNotListWindowsThatCloseWhileTheyAreReadFirst) {
    const auto first = this->addActive("org.example.a");
    this->add("org.example.b");
    this->fake_.closeOnceDescribed(first);

    this->open();

    EXPECT_EQ(this->listed(), Texts{"org.example.b"});
    EXPECT_EQ(this->list_->activeWindow(), xdg::WindowID::none);
    EXPECT_EQ(this->requests(), Texts{"0 destroy"});
}

TYPED_TEST(BothWindowLists, KeepTheirContentWhenTheCompositorDies) {
    this->add("org.example.a");
    this->open();
    const auto id = this->window(0).id;

    this->compositor_.die();
    this->sync();

    this->list_->iconify(id);
    this->list_->activate(id);
    this->list_->close(id);
    this->list_->flush();
    EXPECT_EQ(this->listed(), Texts{"org.example.a"});
}

}
}
