#include "Sources/PathWatcher.hpp"
#include "Support/FakePlatform.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vireline {
namespace {

using test::FakePlatform;

struct PathWatcherTest : testing::Test {
    FakePlatform platform;
    FileURL file = FileURL::fromPath("/Users/ada/watched");
    int changes = 0;
    std::unique_ptr<PathWatcher> watcher = std::make_unique<PathWatcher>(
        file, platform.fileEvents, platform.runLoop, [this] { ++changes; });
};

TEST_F(PathWatcherTest, ReportsEveryBatchOfEvents) {
    platform.fileSystem.put(file);
    watcher->start();

    platform.fileEvents.fire(file, test::contentChanged);
    platform.fileEvents.fire(file, test::contentChanged);

    EXPECT_EQ(changes, 2);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(PathWatcherTest, LooksForAMissingFileOnceASecond) {
    watcher->start();

    platform.runLoop.advance(0.999);
    EXPECT_EQ(platform.fileEvents.attempts.size(), 1U);
    platform.runLoop.advance(0.001);
    EXPECT_EQ(platform.fileEvents.attempts.size(), 2U);
    platform.runLoop.advance(3);
    EXPECT_EQ(platform.fileEvents.attempts.size(), 5U);
    EXPECT_EQ(changes, 0);
}

TEST_F(PathWatcherTest, ReleasesARemovedFileAndOpensItsPathASecondLater) {
    platform.fileSystem.put(file);
    watcher->start();

    platform.fileEvents.fire(file, {.changed = true, .removed = true});

    EXPECT_EQ(changes, 1);
    EXPECT_EQ(platform.fileEvents.watchCount(file), 0);
    platform.runLoop.advance(1);
    EXPECT_EQ(platform.fileEvents.watchCount(file), 1);
    platform.fileEvents.fire(file, test::contentChanged);
    EXPECT_EQ(changes, 2);
}

TEST_F(PathWatcherTest, StopsLookingOnceTheFileIsWatched) {
    watcher->start();
    platform.fileSystem.put(file);

    platform.runLoop.advance(10);

    EXPECT_EQ(platform.fileEvents.attempts.size(), 2U);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(PathWatcherTest, NeverLooksAgainWhereThePlatformWaitsForTheFile) {
    platform.fileEvents.waitsForMissingFiles = true;
    watcher->start();

    platform.runLoop.advance(10);
    platform.fileSystem.put(file);
    EXPECT_EQ(changes, 0);
    platform.fileEvents.fire(file, test::contentChanged);

    EXPECT_EQ(changes, 1);
    EXPECT_EQ(platform.fileEvents.attempts.size(), 1U);
}

TEST_F(PathWatcherTest, EndsItsWatchAndItsRetryWithItself) {
    platform.fileSystem.put(file);
    watcher->start();
    platform.fileEvents.fire(file, test::fileRemoved);

    watcher.reset();
    platform.runLoop.advance(5);

    EXPECT_EQ(platform.fileEvents.attempts.size(), 1U);
    EXPECT_EQ(platform.fileEvents.watchCount(file), 0);
}

}
}
