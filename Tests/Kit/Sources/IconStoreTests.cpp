#include "Sources/IconStore.hpp"
#include "Support/FakePlatform.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using test::FakeIcons;
using test::FakeImage;

constexpr Size iconSize{44, 44};

std::string sourceOf(const ImageHandle& image) {
    return dynamic_cast<const FakeImage&>(*image).source();
}

// Behaviour: icon-store-1
TEST(IconStore, KeepsTheFirstImageOfAKey) {
    FakeIcons icons;
    IconStore store{icons};

    const ImageHandle first = store.icon("/Applications/Mail.app", "com.apple.mail");
    const ImageHandle second = store.icon("/elsewhere/Mail.app", "com.apple.mail");

    EXPECT_EQ(first, second);
    EXPECT_EQ(icons.fileRequests, (std::vector<FakeIcons::FileRequest>{
                                      {"/Applications/Mail.app", "com.apple.mail", iconSize}}));
}

TEST(IconStore, GivesEachKeyItsOwnImage) {
    FakeIcons icons;
    IconStore store{icons};

    const ImageHandle mail = store.icon("/a", "mail");
    const ImageHandle downloads = store.icon("/a", IconStore::downloadsKey);

    EXPECT_NE(mail, downloads);
    EXPECT_EQ(mail->size(), iconSize);
}

// Behaviour: icon-store-2
TEST(IconStore, KeepsTheGenericImageOfAPathThatDoesNotExist) {
    FakeIcons icons;
    IconStore store{icons};

    const ImageHandle image = store.icon("/nowhere", "gone");

    ASSERT_TRUE(image);
    EXPECT_EQ(store.icon("/nowhere", "gone"), image);
    EXPECT_EQ(icons.fileRequests.size(), 1U);
}

// Behaviour: icon-store-3
TEST(IconStore, AsksForTheTrashOnce) {
    FakeIcons icons;
    IconStore store{icons};

    const ImageHandle trash = store.trashIcon();

    EXPECT_EQ(store.trashIcon(), trash);
    EXPECT_EQ(sourceOf(trash), "NSTrashEmpty");
    EXPECT_EQ(trash->size(), iconSize);
    EXPECT_EQ(icons.imageRequests, std::vector<std::string>{"NSTrashEmpty"});
    EXPECT_TRUE(icons.symbolRequests.empty());
}

TEST(IconStore, TakesTheSymbolWhereTheSystemHasNoImageOfTheTrash) {
    FakeIcons icons;
    icons.knownImages.clear();
    IconStore store{icons};

    EXPECT_EQ(sourceOf(store.trashIcon()), "trash.fill");
    EXPECT_EQ(icons.symbolRequests,
              (std::vector<FakeIcons::SymbolRequest>{{"trash.fill", "Trash", iconSize}}));
}

TEST(IconStore, AsksForEveryImageAgainOnceIconsChanged) {
    FakeIcons icons;
    IconStore store{icons};
    const ImageHandle mail = store.icon("/mail", "mail");
    const ImageHandle trash = store.trashIcon();

    icons.announceChange();

    EXPECT_NE(store.icon("/mail", "mail"), mail);
    EXPECT_NE(store.trashIcon(), trash);
    EXPECT_EQ(icons.fileRequests.size(), 2U);
}

TEST(IconStore, ReportsAChangeWhenTheNewImagesAreAvailable) {
    FakeIcons icons;
    IconStore store{icons};
    const ImageHandle before = store.icon("/mail", "mail");
    ImageHandle after;
    const auto changes = store.observeChanges([&] { after = store.icon("/mail", "mail"); });

    icons.announceChange();

    ASSERT_TRUE(after);
    EXPECT_NE(after, before);
}

TEST(IconStoreDeathTest, StopsWhereTheSystemHasNoPictureOfTheTrash) {
    FakeIcons icons;
    icons.knownImages.clear();
    icons.knownSymbols.clear();
    IconStore store{icons};

    EXPECT_DEATH((void)store.trashIcon(), "the system has a picture of the Trash");
}

}
}
