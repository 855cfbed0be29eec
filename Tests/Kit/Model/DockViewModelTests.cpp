#include "Model/DockViewModel.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

DockItem item(const std::string& id, bool isPinned, bool isRunning = false) {
    const AppRef app = test::sampleApp(id);
    return {app.bundleID, app.name, app.url, isPinned, isRunning};
}

TEST(DockViewModel, BeginsWithoutTilesAtTheDefaultSizeUnmagnified) {
    const DockViewModel model;
    EXPECT_TRUE(model.items.get().empty());
    EXPECT_EQ(model.configuredIconSize.get(), 44);
    EXPECT_EQ(model.magnification.get(), 1.0);
    EXPECT_TRUE(model.launching.get().empty());
    EXPECT_FALSE(model.onLayoutChange);
}

// Behaviour: dock-view-model-1
TEST(DockViewModel, DoesNotNotifyOfEqualValues) {
    DockViewModel model;
    model.items.set({item("A", true), item("B", false)});
    model.launching.set({"A"});
    int notifications = 0;
    const auto count = [&] { ++notifications; };
    const Subscription items = model.items.observe(count);
    const Subscription size = model.configuredIconSize.observe(count);
    const Subscription factor = model.magnification.observe(count);
    const Subscription launching = model.launching.observe(count);

    model.items.set({item("A", true), item("B", false)});
    model.configuredIconSize.set(44);
    model.magnification.set(1);
    model.launching.set({"A"});

    EXPECT_EQ(notifications, 0);
}

TEST(DockViewModel, NotifiesObserversOfATileThatOnlyStartedRunning) {
    DockViewModel model;
    model.items.set({item("A", true, false)});
    int notifications = 0;
    const Subscription observation = model.items.observe([&] { ++notifications; });

    model.items.set({item("A", true, true)});

    EXPECT_EQ(notifications, 1);
}

// Behaviour: dock-view-model-4
TEST(DockViewModel, SplitsItsTilesIntoPinnedAndUnpinned) {
    DockViewModel model;
    EXPECT_TRUE(model.pinnedItems().empty());
    EXPECT_TRUE(model.unpinnedItems().empty());

    model.items.set({item("A", true), item("B", true, true), item("C", false, true)});

    EXPECT_EQ(model.pinnedItems(), (std::vector{item("A", true), item("B", true, true)}));
    EXPECT_EQ(model.unpinnedItems(), std::vector{item("C", false, true)});
}

}
}
