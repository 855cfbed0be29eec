/// The contract of FileEvents for watches on existing and missing files; run against the fake and
/// the real adapter.
#include "Host.hpp"
#include "Support/FakeFiles.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline {

static std::ostream& operator<<(std::ostream& out, const FileEventSet& events) {
    return out << "{changed " << events.changed << ", removed " << events.removed << '}';
}

namespace {

/// The fake fires the events explicitly, after the files have been changed.
class FakeWatch {
public:
    FakeWatch() { port.waitsForMissingFiles = true; }

    void create() { files_.put(file); }
    void overwrite() { port.fire(file, {.changed = true}); }
    void replace() { port.fire(file, {.removed = true}); }
    void remove() {
        files_.remove(file);
        port.fire(file, {.removed = true});
    }
    void deliver() {}

    static constexpr bool waitsForMissingFiles = true;

private:
    test::FakeFileSystem files_;

public:
    FileURL file = FileURL::fromPath("/Users/ada/Library/list");
    test::FakeFileEvents port{files_};
};

class RealWatch {
public:
    RealWatch() { test::prepareHost(); }

    /// Renamed into place, because a newly attached watch could otherwise see the writing as well.
    void create() const { test::replaceByRename(file, "one"); }
    void overwrite() const { test::overwrite(file, "two"); }
    void replace() const { test::replaceByRename(file, "three"); }
    void remove() const { test::removeAll(file); }
    void deliver() { test::deliverPendingEvents(); }

    static constexpr bool waitsForMissingFiles = test::hostWaitsForMissingFiles;

private:
    test::TemporaryFolder temporary_;

public:
    FileURL file = test::urlOf(temporary_.path()).appending("list");
    test::HostFileEvents port;
};

template <class Watch>
class FileEventsContract : public testing::Test {
protected:
    using Reports = std::vector<FileEventSet>;

    void start() {
        auto started = watch.port.watch(watch.file,
                                        [this](FileEventSet events) { reports.push_back(events); });
        ASSERT_TRUE(started) << started.error();
        subscription = *std::move(started);
    }

    /// The reports since the last call.
    Reports newReports() {
        watch.deliver();
        return std::exchange(reports, {});
    }

    Watch watch;
    Reports reports;
    Subscription subscription;
};

constexpr FileEventSet changed{.changed = true};
constexpr FileEventSet removed{.removed = true};

using Watches = testing::Types<FakeWatch, RealWatch>;
TYPED_TEST_SUITE(FileEventsContract, Watches);

TYPED_TEST(FileEventsContract, ReportsEveryChange) {
    using Reports = typename TestFixture::Reports;
    this->watch.create();
    this->start();
    EXPECT_EQ(this->newReports(), Reports{});

    this->watch.overwrite();
    EXPECT_EQ(this->newReports(), Reports{changed});
    this->watch.overwrite();
    EXPECT_EQ(this->newReports(), Reports{changed});
}

TYPED_TEST(FileEventsContract, ReportsADeletionAndThenNothingMore) {
    using Reports = typename TestFixture::Reports;
    this->watch.create();
    this->start();

    this->watch.remove();
    EXPECT_EQ(this->newReports(), Reports{removed});

    this->watch.create();
    this->watch.overwrite();
    EXPECT_EQ(this->newReports(), Reports{});
}

TYPED_TEST(FileEventsContract, ReportsAReplacementAndThenNothingMore) {
    using Reports = typename TestFixture::Reports;
    this->watch.create();
    this->start();

    this->watch.replace();
    EXPECT_EQ(this->newReports(), Reports{removed});

    this->watch.overwrite();
    EXPECT_EQ(this->newReports(), Reports{});
}

TYPED_TEST(FileEventsContract, FollowsTheNewFileAfterAFreshStart) {
    using Reports = typename TestFixture::Reports;
    this->watch.create();
    this->start();
    this->watch.replace();
    this->newReports();

    this->start();
    this->watch.overwrite();

    EXPECT_EQ(this->newReports(), Reports{changed});
}

TYPED_TEST(FileEventsContract, AttachesToAMissingFileWithoutAnEventOnceItAppears) {
    using Reports = typename TestFixture::Reports;
    if constexpr (!TypeParam::waitsForMissingFiles)
        GTEST_SKIP() << "this platform cannot wait for a missing file";
    this->start();

    this->watch.create();
    EXPECT_EQ(this->newReports(), Reports{});

    this->watch.overwrite();
    EXPECT_EQ(this->newReports(), Reports{changed});
}

TYPED_TEST(FileEventsContract, ReportsNothingOnceTheSubscriptionEnded) {
    using Reports = typename TestFixture::Reports;
    this->watch.create();
    this->start();

    this->subscription.reset();
    this->watch.overwrite();

    EXPECT_EQ(this->newReports(), Reports{});
}

TYPED_TEST(FileEventsContract, MayBeEndedByItsOwnHandler) {
    this->watch.create();
    int count = 0;
    auto started = this->watch.port.watch(this->watch.file, [&](FileEventSet) {
        ++count;
        this->subscription.reset();
    });
    ASSERT_TRUE(started);
    this->subscription = *std::move(started);

    this->watch.overwrite();
    this->watch.deliver();
    this->watch.overwrite();
    this->watch.deliver();

    EXPECT_EQ(count, 1);
}

TYPED_TEST(FileEventsContract, ServesSeveralWatchesOfOneFile) {
    using Reports = typename TestFixture::Reports;
    this->watch.create();
    this->start();
    Reports others;
    const auto other = this->watch.port.watch(
        this->watch.file, [&](FileEventSet events) { others.push_back(events); });
    ASSERT_TRUE(other);

    this->watch.overwrite();

    EXPECT_EQ(this->newReports(), Reports{changed});
    EXPECT_EQ(others, Reports{changed});
}

}
}
