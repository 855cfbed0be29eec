#include "Files/FileDescriptor.hpp"
#include "Files/Log/LogFile.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace vireline::xdg {
namespace {

namespace fs = std::filesystem;

class LogFileTest : public testing::Test {
protected:
    static std::string contentOf(const FileURL& url) {
        std::ifstream opened{url.path(), std::ios::binary};
        return {std::istreambuf_iterator<char>{opened}, {}};
    }

    void append(const std::string& line) const { LogFile::append(log.path(), line); }

    test::TemporaryFolder temporary;
    FileURL folder = test::urlOf(temporary.path());
    FileURL log = folder.appending("vireline.log");
    FileURL victim = folder.appending("victim");
};

// Behaviour: dev-log-1
TEST_F(LogFileTest, MakesAFileThatOnlyTheUserCanReadAndLeavesNothingBeside) {
    append("first\n");

    EXPECT_EQ(contentOf(log), "first\n");
    EXPECT_EQ(fs::status(log.path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(std::distance(fs::directory_iterator{folder.path()}, {}), 1);
}

TEST_F(LogFileTest, ShowsANewFileOnlyOnceItHasItsFirstLine) {
    const FileDescriptor watch{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)};
    ASSERT_GE(::inotify_add_watch(watch.get(), folder.path().c_str(),
                                  IN_CREATE | IN_MOVED_TO | IN_MODIFY),
              0);

    append("first\n");

    alignas(inotify_event) std::array<char, 4096> buffer{};
    const ssize_t length = ::read(watch.get(), buffer.data(), buffer.size());
    std::vector<std::uint32_t> events;
    for (ssize_t at = 0; at < length;) {
        const auto& event =
            reinterpret_cast<const inotify_event&>(buffer.at(static_cast<std::size_t>(at)));
        if (std::string_view{event.name} == "vireline.log")
            events.push_back(event.mask);
        at += static_cast<ssize_t>(sizeof event + event.len);
    }
    EXPECT_EQ(events, std::vector<std::uint32_t>{IN_MOVED_TO});
}

// Behaviour: dev-log-2
TEST_F(LogFileTest, AppendsToWhatIsThere) {
    test::overwrite(log, "from the last run\n");

    append("first\n");
    append("second\n");

    EXPECT_EQ(contentOf(log), "from the last run\nfirst\nsecond\n");
}

TEST_F(LogFileTest, FollowsNoLink) {
    test::overwrite(victim, "precious");
    fs::create_symlink(victim.path(), log.path());

    append("line\n");

    EXPECT_EQ(contentOf(victim), "precious");
    EXPECT_TRUE(fs::is_symlink(log.path()));
}

TEST_F(LogFileTest, MakesNoFileThatALinkNames) {
    fs::create_symlink(victim.path(), log.path());

    append("line\n");

    EXPECT_FALSE(fs::exists(victim.path()));
}

TEST_F(LogFileTest, WritesToNoFileOfAnotherUser) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make a file another user's";
    test::overwrite(log, "theirs\n");
    fs::permissions(log.path(), fs::perms::all);
    test::giveAway(log);

    append("line\n");

    EXPECT_EQ(contentOf(log), "theirs\n");
}

TEST_F(LogFileTest, WaitsForNoReaderOfAPipe) {
    ASSERT_EQ(::mkfifo(log.path().c_str(), 0600), 0);

    append("goes on\n");

    EXPECT_TRUE(fs::is_fifo(log.path()));
}

TEST_F(LogFileTest, CannotBeRacedIntoFollowingALink) {
    test::overwrite(victim, "precious");
    const FileURL plain = folder.appending("plain");
    const FileURL link = folder.appending("link");
    std::atomic<bool> isOver = false;
    std::thread attacker{[&] {
        while (!isOver) {
            fs::create_symlink(victim.path(), link.path());
            test::rename(link, log);
            test::overwrite(plain, "");
            test::rename(plain, log);
        }
    }};

    for (int i = 0; i < 2000; ++i)
        append("line\n");

    isOver = true;
    attacker.join();
    EXPECT_EQ(contentOf(victim), "precious");
}

TEST_F(LogFileTest, StaysSilentWhenTheFolderIsMissing) {
    LogFile::append(folder.appending("missing/vireline.log").path(), "line\n");

    EXPECT_FALSE(fs::exists(folder.appending("missing").path()));
}

}
}
