#include "Files/Watching/PathFollower.hpp"
#include "Linux/EventLoop.hpp"
#include "Linux/OrdinaryUser.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <fstream>
#include <vector>

namespace vireline::xdg {

static std::ostream& operator<<(std::ostream& out, const PathEvents& events) {
    return out << "{appeared " << events.appeared << ", changed " << events.changed << ", removed "
               << events.removed << '}';
}

namespace {

using test::deliverPendingEvents;
using test::makeFolder;
using test::overwrite;
using test::removeAll;
using test::replaceByRename;

constexpr PathEvents appeared{.appeared = true};
constexpr PathEvents changed{.changed = true};
constexpr PathEvents removed{.removed = true};

class PathFollower : public testing::Test {
protected:
    PathFollower() { test::testApplication(); }

    void follow(const FileURL& url) {
        auto following = followPath(url, [this](PathEvents events) { reports.push_back(events); });
        ASSERT_TRUE(following) << following.error();
        subscription = *std::move(following);
    }

    /// The reports since the last call.
    std::vector<PathEvents> newReports() {
        deliverPendingEvents();
        return std::exchange(reports, {});
    }

    using Reports = std::vector<PathEvents>;

    test::TemporaryFolder temporary;
    FileURL folder = test::urlOf(temporary.path());
    FileURL file = folder.appending("Library/Preferences/list");
    std::vector<PathEvents> reports;
    Subscription subscription;
};

TEST_F(PathFollower, ReportsAWriteInPlaceOnce) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    overwrite(file, "two");

    EXPECT_EQ(newReports(), Reports{changed});
}

TEST_F(PathFollower, ReportsWhatIsAppended) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    std::ofstream{file.path(), std::ios::app} << "more";

    EXPECT_EQ(newReports(), Reports{changed});
}

TEST_F(PathFollower, SaysNothingAboutOtherFilesInTheFolder) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    overwrite(file.parent().appending("other"), "x");
    removeAll(file.parent().appending("other"));

    EXPECT_EQ(newReports(), Reports{});
}

TEST_F(PathFollower, SaysNothingAboutAChangeOfMode) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    std::filesystem::permissions(file.path(), std::filesystem::perms::owner_read);

    EXPECT_EQ(newReports(), Reports{});
}

TEST_F(PathFollower, ReportsAReplacementByRenameAndFollowsTheNewFile) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    replaceByRename(file, "two");
    EXPECT_EQ(newReports(), (Reports{{.appeared = true, .removed = true}}));

    overwrite(file, "three");
    EXPECT_EQ(newReports(), Reports{changed});
}

TEST_F(PathFollower, NoticesThatAnOpenFileWasReplaced) {
    makeFolder(file.parent());
    overwrite(file, "one");
    const std::ifstream holder{file.path()};
    follow(file);

    replaceByRename(file, "two");

    EXPECT_EQ(newReports(), (Reports{{.appeared = true, .removed = true}}));
}

TEST_F(PathFollower, NoticesTheReplacementOfAFileThatHasAnotherNameToo) {
    makeFolder(file.parent());
    overwrite(file, "one");
    std::filesystem::create_hard_link(file.path(), file.path() + ".backup");
    follow(file);

    replaceByRename(file, "two");

    EXPECT_EQ(newReports(), (Reports{{.appeared = true, .removed = true}}));
}

TEST_F(PathFollower, ReportsDeletionAndRecreation) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    removeAll(file);
    EXPECT_EQ(newReports(), Reports{removed});

    replaceByRename(file, "two");
    EXPECT_EQ(newReports(), Reports{appeared});

    overwrite(file, "three");
    EXPECT_EQ(newReports(), Reports{changed});
}

TEST_F(PathFollower, ReportsThatTheFileWasMovedAwayAndNoLongerWhatBecomesOfIt) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);
    const FileURL elsewhere = folder.appending("elsewhere");

    test::rename(file, elsewhere);
    EXPECT_EQ(newReports(), Reports{removed});

    overwrite(elsewhere, "two");
    EXPECT_EQ(newReports(), Reports{});
}

TEST_F(PathFollower, WaitsOnTheNearestFolderForAllThatIsMissing) {
    follow(file);

    makeFolder(file.parent());
    EXPECT_EQ(newReports(), Reports{});

    replaceByRename(file, "one");
    EXPECT_EQ(newReports(), Reports{appeared});

    overwrite(file, "two");
    EXPECT_EQ(newReports(), Reports{changed});
}

TEST_F(PathFollower, FindsTheFileWhenFoldersAndFileAppearAtOnce) {
    follow(file);

    makeFolder(file.parent());
    overwrite(file, "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, WaitsThroughFoldersThatComeAndGo) {
    follow(file);

    makeFolder(file.parent());
    EXPECT_EQ(newReports(), Reports{});
    removeAll(folder.appending("Library"));
    EXPECT_EQ(newReports(), Reports{});
    makeFolder(file.parent());
    replaceByRename(file, "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, WaitsForAHomeThatIsMissingAltogether) {
    removeAll(folder);
    follow(file);

    makeFolder(file.parent());
    replaceByRename(file, "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, NoticesThatAFolderAboveWasRenamed) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    test::rename(folder.appending("Library"), folder.appending("Library.old"));
    EXPECT_EQ(newReports(), Reports{removed});

    overwrite(folder.appending("Library.old/Preferences/list"), "two");
    EXPECT_EQ(newReports(), Reports{});

    test::rename(folder.appending("Library.old"), folder.appending("Library"));
    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, WaitsInAFolderThatIsRenamedMeanwhile) {
    makeFolder(file.parent());
    follow(file);

    test::rename(folder.appending("Library"), folder.appending("Library.old"));
    makeFolder(file.parent());
    replaceByRename(file, "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, FollowsALinkToTheFileAndNoticesThatItLeadsElsewhere) {
    makeFolder(file.parent());
    const FileURL first = folder.appending("first");
    const FileURL second = folder.appending("second");
    overwrite(first, "one");
    overwrite(second, "two");
    std::filesystem::create_symlink(first.path(), file.path());
    follow(file);

    overwrite(first, "three");
    EXPECT_EQ(newReports(), Reports{changed});

    std::filesystem::create_symlink(second.path(), file.path() + ".new");
    std::filesystem::rename(file.path() + ".new", file.path());
    EXPECT_EQ(newReports(), (Reports{{.appeared = true, .removed = true}}));

    overwrite(second, "four");
    EXPECT_EQ(newReports(), Reports{changed});
}

TEST_F(PathFollower, WaitsWhereALinkLeadsNowhereYet) {
    makeFolder(file.parent());
    std::filesystem::create_symlink("../../kept/list", file.path());
    follow(file);

    makeFolder(folder.appending("kept"));
    EXPECT_EQ(newReports(), Reports{});
    replaceByRename(folder.appending("kept/list"), "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, TakesLinksInACircleForAMissingFile) {
    makeFolder(file.parent());
    std::filesystem::create_symlink(file.path(), file.path() + ".other");
    std::filesystem::create_symlink(file.path() + ".other", file.path());
    follow(file);

    replaceByRename(file, "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, WaitsForAFolderWhereAFileStandsNow) {
    overwrite(folder.appending("Library"), "no folder");
    follow(file);

    removeAll(folder.appending("Library"));
    makeFolder(file.parent());
    replaceByRename(file, "one");

    EXPECT_EQ(newReports(), Reports{appeared});
}

TEST_F(PathFollower, ReportsTheEntriesOfAFolder) {
    const FileURL launchers = folder.appending("launchers");
    makeFolder(launchers);
    follow(launchers);

    overwrite(launchers.appending("one"), "1");
    EXPECT_EQ(newReports(), Reports{changed});
    removeAll(launchers.appending("one"));
    EXPECT_EQ(newReports(), Reports{changed});
    removeAll(launchers);
    EXPECT_EQ(newReports(), Reports{removed});
}

TEST_F(PathFollower, SaysNothingOnceTheSubscriptionEnded) {
    makeFolder(file.parent());
    overwrite(file, "one");
    follow(file);

    overwrite(file, "two");
    subscription.reset();

    EXPECT_EQ(newReports(), Reports{});
}

TEST_F(PathFollower, MayBeEndedByItsOwnReport) {
    makeFolder(file.parent());
    overwrite(file, "one");
    int count = 0;
    auto following = followPath(file, [&](PathEvents) {
        ++count;
        subscription.reset();
    });
    ASSERT_TRUE(following);
    subscription = *std::move(following);

    overwrite(file, "two");
    deliverPendingEvents();
    overwrite(file, "three");
    deliverPendingEvents();

    EXPECT_EQ(count, 1);
}

TEST_F(PathFollower, LeadsThroughAFolderThatMayBePassedButNotListed) {
    const FileURL closed = folder.appending("closed");
    const FileURL within = closed.appending("open/list");
    makeFolder(within.parent());
    overwrite(within, "one");
    ASSERT_EQ(::chmod(closed.path().c_str(), 0311), 0);
    {
        const test::OrdinaryUser user;
        follow(within);
    }

    overwrite(within, "two");

    EXPECT_EQ(newReports(), Reports{changed});
    ::chmod(closed.path().c_str(), 0755);
}

TEST_F(PathFollower, FailsWhereItCouldNotSeeTheFileArrive) {
    const FileURL closed = folder.appending("closed");
    makeFolder(closed);
    ASSERT_EQ(::chmod(closed.path().c_str(), 0311), 0);

    const test::OrdinaryUser user;
    const auto following = followPath(closed.appending("list"), [](PathEvents) {});

    ASSERT_FALSE(following);
    EXPECT_EQ(following.error().code, EACCES);
}

/// Overflows the kernel's event queue with events in a folder that is watched for arrivals.
void floodWithArrivals(const FileURL& folder) {
    std::size_t limit = 0;
    std::ifstream{"/proc/sys/fs/inotify/max_queued_events"} >> limit;
    ASSERT_GT(limit, 0U);
    for (std::size_t i = 0; i <= limit; ++i) {
        const FileURL other = folder.appending(i % 2 == 0 ? "even" : "odd");
        overwrite(other, "");
        std::filesystem::remove(other.path());
    }
}

TEST_F(PathFollower, FindsTheFileWhoseArrivalTheKernelLost) {
    makeFolder(file.parent());
    follow(file);

    floodWithArrivals(file.parent());
    overwrite(file, "one");

    // Since other events may have been lost too, a change is reported as well.
    EXPECT_EQ(newReports(), (Reports{appeared, changed}));
}

TEST_F(PathFollower, KeepsNoDescriptorOfWhatItNoLongerFollows) {
    const auto openDescriptors = [] {
        return std::distance(std::filesystem::directory_iterator{"/proc/self/fd"}, {});
    };
    makeFolder(file.parent());
    const auto before = openDescriptors();

    for (int i = 0; i < 20; ++i)
        follow(file);
    subscription.reset();

    EXPECT_EQ(openDescriptors(), before);
}

}
}
