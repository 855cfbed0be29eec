#include "App/DevLog.hpp"
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
        std::make_unique<TrashService>(platform.trash, platform.userFolders);
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

TEST_F(TrashServiceTest, StopsSafelyWhenItEndsDuringAMove) {
    platform.trash.holds = true;
    service->trash({first, second});

    service.reset();
    platform.trash.complete();

    EXPECT_EQ(platform.trash.requests, URLs{first});
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(TrashServiceTest, TakesADropOfManyFilesWithoutDeepCalls) {
    // Each level of calls would take some hundred bytes of the stack's eight million.
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
