/// A menu that opens at the pointer, for panels that do not show it themselves. There is no pointer
/// here.
#include "Panels/Menus/PointerMenu.hpp"
#include "WaylandPanels/ShellTest.hpp"

#include <QMenu>
#include <algorithm>
#include <memory>
#include <string>

namespace vireline::wayland {
namespace {

class PointerMenuTest : public ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        ASSERT_TRUE(eventually([] { return layers() == measuring; }));
        items_ = std::make_unique<QMenu>();
        items_->addAction(QStringLiteral("Settings"));
        items_->addAction(QStringLiteral("Quit"));
    }
    void TearDown() override {
        menu_.reset();
        items_.reset();
        shell().setConfigures(true);
        if (screens().screens().empty()) {
            shell().plugIn();
            EXPECT_TRUE(eventually([&] { return screens().screens().size() == 1; }));
        }
        ShellTest::TearDown();
    }

    void open() {
        (void)shell().requests();
        menu_ = std::make_unique<PointerMenu>(context().menus.connection, *items_, [this] {
            ++closed_;
            menu_.reset();
        });
        settle();
    }
    [[nodiscard]] static int layers() { return shell().count("zwlr_layer_surface_v1"); }
    [[nodiscard]] static int popups() { return shell().count("xdg_popup"); }

    /// The surfaces that measure the free space of the only display.
    static constexpr int measuring = 4;

    std::unique_ptr<QMenu> items_;
    std::unique_ptr<PointerMenu> menu_;
    int closed_ = 0;
};

TEST_F(PointerMenuTest, OpensInTheMiddleOfADisplayIfNoPointerIsFound) {
    open();
    EXPECT_EQ(layers(), measuring + 1) << "the display is covered";

    ASSERT_TRUE(eventually([] { return popups() == 1; }));

    const Requests requests = shell().requests();
    const auto has = [&](const std::string& request) {
        return std::ranges::count(requests, request) > 0;
    };
    EXPECT_TRUE(has("xdg_positioner set_anchor_rect " +
                    std::to_string((FakeShell::outputWidth - 1) / 2) + ' ' +
                    std::to_string((FakeShell::outputHeight - 1) / 2) + " 1 1"));
    EXPECT_TRUE(has("zwlr_layer_surface_v1 set_keyboard_interactivity 1"));
    EXPECT_TRUE(eventually([&] { return items_->isVisible(); }));
    EXPECT_EQ(closed_, 0);
}

TEST_F(PointerMenuTest, UncoversTheDisplaysWhenItIsClosed) {
    open();
    ASSERT_TRUE(eventually([&] { return items_->isVisible(); }));

    items_->close();

    EXPECT_TRUE(eventually([&] { return closed_ == 1; }));
    EXPECT_TRUE(eventually([] { return popups() == 0 && layers() == measuring; }));
    EXPECT_EQ(closed_, 1);
}

TEST_F(PointerMenuTest, IsClosedUnopenedIfTheCompositorShowsNoCover) {
    shell().setConfigures(false);
    open();

    EXPECT_TRUE(eventually([&] { return closed_ == 1; }));
    EXPECT_FALSE(items_->isVisible());
    EXPECT_TRUE(eventually([] { return layers() == measuring; }));
    EXPECT_EQ(shell().requests("xdg_popup"), Requests{});
}

TEST_F(PointerMenuTest, IsClosedWhenItsDisplayVanishes) {
    open();
    ASSERT_TRUE(eventually([&] { return items_->isVisible(); }));

    shell().unplug();
    shell().closeLayers();

    EXPECT_TRUE(eventually([&] { return closed_ == 1; }));
    EXPECT_TRUE(eventually([] { return popups() == 0 && layers() == 0; }));
    EXPECT_FALSE(items_->isVisible());
}

}
}
