#include "Support/DockRootViewTest.hpp"

namespace vireline {
namespace {

using test::DockRootViewTest;

class AccessibleTilesTest : public DockRootViewTest {
protected:
    [[nodiscard]] std::uint32_t idOf(std::size_t index) const {
        return view().accessibleTiles().at(index).id;
    }
};

TEST_F(AccessibleTilesTest, AppsAreButtonsThatSayWhetherTheyRun) {
    dock.setTiles(1, 1);
    show();

    const auto tiles = view().accessibleTiles();

    ASSERT_EQ(tiles.size(), 4U);
    EXPECT_EQ(tiles[0].label, "App p0");
    EXPECT_EQ(tiles[0].value, "not running");
    EXPECT_EQ(tiles[1].label, "App u0");
    EXPECT_EQ(tiles[1].value, "running");
    EXPECT_TRUE(tiles[0].hasMenu && tiles[1].hasMenu);
}

TEST_F(AccessibleTilesTest, UtilityTilesHaveNeitherValueNorMenu) {
    dock.setTiles(0, 0);
    show();

    const auto tiles = view().accessibleTiles();

    ASSERT_EQ(tiles.size(), 2U);
    EXPECT_EQ(tiles[0].label, "Downloads");
    EXPECT_EQ(tiles[1].label, "Trash");
    for (const AccessibleTile& tile : tiles) {
        EXPECT_EQ(tile.value, std::nullopt);
        EXPECT_FALSE(tile.hasMenu);
    }
}

TEST_F(AccessibleTilesTest, EachLiesWhereItsIconIsAndIsNamedLikeItsNodes) {
    dock.setTiles(3, 0);
    show();

    const auto tiles = view().accessibleTiles();

    ASSERT_EQ(tiles.size(), icons().size());
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        EXPECT_TRUE(tiles[i].frame.contains(centerOfIcon(i)));
        EXPECT_EQ(tiles[i].id, icons().at(i).id.owner);
    }
}

TEST_F(AccessibleTilesTest, ANewListIsThereBeforeTheNextFrame) {
    dock.setTiles(1, 0);
    show();
    ASSERT_EQ(view().accessibleTiles().size(), 3U);

    dock.setTiles(2, 0);

    EXPECT_EQ(view().accessibleTiles().size(), 4U);
}

TEST_F(AccessibleTilesTest, ACollapsedDockHasNone) {
    dock.setTiles(2, 0);
    show();

    ui.collapsed.set(true);

    EXPECT_TRUE(view().accessibleTiles().empty());
}

TEST_F(AccessibleTilesTest, PressingATileIsATap) {
    dock.setTiles(2, 0);
    show();

    view().press(idOf(1));
    view().press(idOf(2));

    ASSERT_EQ(dock.actionsTaken.size(), 2U);
    EXPECT_EQ(dock.actionsTaken[0], "click p1 #2");
    EXPECT_EQ(dock.actionsTaken[1], "open /home/me/Downloads");
}

TEST_F(AccessibleTilesTest, ATilesMenuCanBeAskedFor) {
    dock.setTiles(1, 0);
    show();

    view().showMenu(idOf(0));
    ASSERT_FALSE(menuTitles.empty());
    choose(0);

    EXPECT_EQ(dock.actionsTaken.size(), 1U);
}

TEST_F(AccessibleTilesTest, ATileThatIsGoneTakesNoNotice) {
    dock.setTiles(2, 0);
    show();
    const std::uint32_t gone = idOf(1);
    dock.setTiles(1, 0);

    view().press(gone);
    view().showMenu(gone);

    EXPECT_TRUE(dock.actionsTaken.empty());
    EXPECT_TRUE(menuTitles.empty());
}

}
}
