#include "Foundation/DevLog.hpp"
#include "Interaction/TrashService.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vireline {
namespace {

using test::FakePlatform;
using test::LoggedLines;
using Lines = std::vector<std::string>;
using URLs = std::vector<FileURL>;

struct TrashServiceTest : testing::Test {
    LoggedLines log;
    FakePlatform platform;
    FileURL first = FileURL::fromPath("/Users/ada/first.txt");
    FileURL second = FileURL::fromPath("/Users/ada/second.txt");
    FileURL third = FileURL::fromPath("/Users/ada/third.txt");
    std::unique_ptr<TrashService> service =
        std::make_unique<TrashService>(platform.trash, platform.userFolders, platform.runLoop);
};

TEST_F(TrashServiceTest, MovesFilesInTheirOrderAndLogsEach) {
    service->trash({first, second});

    EXPECT_EQ(platform.trash.trashed, (URLs{first, second}));
    EXPECT_EQ(log.messages(), (Lines{"trashed first.txt", "trashed second.txt"}));
}

// Behaviour: app-activator-5
TEST_F(TrashServiceTest, GoesOnAfterAFailure) {
    platform.trash.failures[second.path()] = PlatformError{13, "Permission denied"};

    service->trash({first, second, third});

    EXPECT_EQ(platform.trash.trashed, (URLs{first, third}));
    EXPECT_EQ(log.messages(),
              (Lines{"trashed first.txt", "trash failed for second.txt: Permission denied",
                     "trashed third.txt"}));
}

TEST_F(TrashServiceTest, AsksForOneMoveAtATime) {
    platform.trash.holds = true;

    service->trash({first, second});
    EXPECT_EQ(platform.trash.requests, URLs{first});
    EXPECT_EQ(log.messages(), Lines{});

    platform.trash.complete();
    EXPECT_EQ(platform.trash.requests, (URLs{first, second}));
    EXPECT_EQ(log.messages(), Lines{"trashed first.txt"});
}

TEST_F(TrashServiceTest, QueuesASecondDropBehindTheFirst) {
    platform.trash.holds = true;

    service->trash({first, second});
    service->trash({third});
    for (int i = 0; i < 3; ++i)
        platform.trash.complete();

    EXPECT_EQ(platform.trash.trashed, (URLs{first, second, third}));
    EXPECT_EQ(platform.trash.heldCount(), 0);
}

TEST_F(TrashServiceTest, AMoveThatHangsHoldsUpTheRestOfItsFolderAlone) {
    const FileURL far = FileURL::fromPath("/server/far.txt");
    const FileURL farther = FileURL::fromPath("/server/farther.txt");
    platform.trash.holds = true;
    service->trash({far, first, farther, second});

    platform.runLoop.advance(TrashService::hangTimeout - 0.1);
    EXPECT_EQ(platform.trash.requests, URLs{far});
    platform.runLoop.advance(0.2);
    EXPECT_EQ(platform.trash.requests, (URLs{far, first}));
    platform.trash.completeMove(first);
    platform.trash.completeMove(second);
    EXPECT_EQ(platform.trash.requests, (URLs{far, first, second}));

    platform.trash.completeMove(far);
    EXPECT_EQ(platform.trash.requests, (URLs{far, first, second, farther}));
    platform.trash.completeMove(farther);
    EXPECT_EQ(log.messages(), (Lines{"trashed first.txt", "trashed second.txt", "trashed far.txt",
                                     "trashed farther.txt"}));
}

TEST_F(TrashServiceTest, AMoveThatHungKeepsItsOrderInItsFolder) {
    const FileURL far = FileURL::fromPath("/server/far.txt");
    const FileURL farther = FileURL::fromPath("/server/farther.txt");
    const FileURL farthest = FileURL::fromPath("/server/farthest.txt");
    platform.trash.holds = true;
    service->trash({far, farther});
    platform.runLoop.advance(TrashService::hangTimeout + 0.1);
    service->trash({farthest});
    for (const FileURL& url : {far, farther, farthest})
        platform.trash.completeMove(url);

    EXPECT_EQ(platform.trash.trashed, (URLs{far, farther, farthest}));
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(TrashServiceTest, HasOnlySoManyMovesHangAtATime) {
    URLs files;
    for (std::size_t i = 0; i < TrashService::maximumHanging + 2; ++i)
        files.push_back(FileURL::fromPath("/server" + std::to_string(i) + "/file"));
    platform.trash.holds = true;
    service->trash(files);

    platform.runLoop.advance(100);
    EXPECT_EQ(platform.trash.requests.size(), TrashService::maximumHanging);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);

    platform.trash.completeMove(files.front());
    EXPECT_EQ(platform.trash.requests.size(), TrashService::maximumHanging + 1);
}

TEST_F(TrashServiceTest, IsIdleAtRest) {
    service->trash({first, second});

    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(TrashServiceTest, StopsSafelyWhenItEndsDuringAMove) {
    platform.trash.holds = true;
    service->trash({first, second});

    service.reset();
    platform.trash.complete();

    EXPECT_EQ(platform.trash.requests, URLs{first});
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(TrashServiceTest, TakesADropOfManyFilesWithoutDeepCalls) {
    // Recursion would take some hundred bytes per level of an 8 MB stack.
    constexpr std::size_t count = 50'000;
    DevLog::setPath(std::nullopt);
    testing::internal::CaptureStdout();

    service->trash(URLs(count, first));

    testing::internal::GetCapturedStdout();
    EXPECT_EQ(platform.trash.trashed.size(), count);
}

TEST_F(TrashServiceTest, DoesNothingWithNoFiles) {
    service->trash({});

    EXPECT_EQ(platform.trash.requests, URLs{});
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(TrashServiceTest, KnowsTheFoldersOfTheUtilityTiles) {
    EXPECT_EQ(service->trashURL(), platform.userFolders.trashFolder);
    EXPECT_EQ(service->downloadsURL(), platform.userFolders.downloadsFolder);

    platform.userFolders.trashFolder.reset();
    platform.userFolders.downloadsFolder.reset();

    EXPECT_EQ(service->trashURL(), std::nullopt);
    EXPECT_EQ(service->downloadsURL(), std::nullopt);
}

}
}
