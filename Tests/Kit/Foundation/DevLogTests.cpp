#include "Foundation/DevLog.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <string>

namespace vireline {
namespace {

namespace fs = std::filesystem;
using test::LoggedLines;
using test::TemporaryFolder;

constexpr std::size_t stampLength = std::string_view{"[2025-03-14T09:26:53Z] "}.size();

std::string contentOf(const fs::path& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

void writeFile(const fs::path& path, std::string_view content) {
    std::ofstream{path, std::ios::binary} << content;
}

std::string withoutStamp(const std::string& line) {
    return line.substr(std::min(stampLength, line.size()));
}

std::string outputOf(std::string_view message) {
    testing::internal::CaptureStdout();
    DevLog::write(message);
    return testing::internal::GetCapturedStdout();
}

// Behaviour: dev-log-1
TEST(DevLog, CreatesTheFileWithExactlyTheFirstLine) {
    const LoggedLines log;

    const std::string printed = outputOf("first line");

    EXPECT_EQ(contentOf(log.file()), printed);
    EXPECT_EQ(withoutStamp(printed), "first line\n");
}

// Behaviour: dev-log-2
TEST(DevLog, AppendsTheSecondLineBehindTheFirst) {
    const LoggedLines log;

    const std::string first = outputOf("first line");
    const std::string second = outputOf("second line");

    EXPECT_EQ(contentOf(log.file()), first + second);
}

// Behaviour: dev-log-3
TEST(DevLog, KeepsALineFeedInAMessageAndAddsExactlyOne) {
    const LoggedLines log;

    DevLog::write("two\nlines\n");

    EXPECT_EQ(withoutStamp(contentOf(log.file())), "two\nlines\n\n");
}

// Behaviour: dev-log-4
TEST(DevLog, PrintsOnlyWhileThereIsNoPath) {
    const LoggedLines log;
    DevLog::setPath(std::nullopt);

    const std::string printed = outputOf("nowhere else");

    EXPECT_EQ(withoutStamp(printed), "nowhere else\n");
    EXPECT_TRUE(fs::is_empty(log.folder()));
}

TEST(DevLog, StampsTheTimeInUTCWithWholeSeconds) {
    using std::chrono::floor, std::chrono::seconds, std::chrono::system_clock;
    const auto before = floor<seconds>(system_clock::now());
    const std::string printed = outputOf("now");
    const auto after = floor<seconds>(system_clock::now());

    std::tm fields{};
    std::istringstream{printed} >> std::get_time(&fields, "[%Y-%m-%dT%H:%M:%SZ] ");
    const auto stamp = system_clock::from_time_t(timegm(&fields));
    EXPECT_EQ(printed.substr(stampLength), "now\n");
    EXPECT_GE(stamp, before);
    EXPECT_LE(stamp, after);
}

TEST(DevLog, AppendsToALogThatIsThereAlready) {
    const LoggedLines log;
    writeFile(log.file(), "from the last run\n");

    const std::string printed = outputOf("next");

    EXPECT_EQ(contentOf(log.file()), "from the last run\n" + printed);
}

TEST(DevLog, CreatesTheFileAgainWhenItWasDeleted) {
    const LoggedLines log;
    DevLog::write("lost");
    fs::remove(log.file());

    DevLog::write("kept");

    EXPECT_EQ(log.messages(), std::vector<std::string>{"kept"});
}

TEST(DevLog, CreatesAFileThatOnlyTheUserCanReadAndLeavesNothingBeside) {
    const LoggedLines log;

    DevLog::write("private");

    EXPECT_EQ(fs::status(log.file()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(std::distance(fs::directory_iterator{log.folder()}, {}), 1);
}

TEST(DevLog, CreatesTheFileOverTheRemainsOfAnEarlierAttempt) {
    const LoggedLines log;
    const fs::path elsewhere = log.folder() / "elsewhere";
    fs::create_symlink(elsewhere, log.file().string() + ".new");

    DevLog::write("new");

    EXPECT_EQ(log.messages(), std::vector<std::string>{"new"});
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(log.file())));
    EXPECT_FALSE(fs::exists(elsewhere));
}

TEST(DevLog, DoesNotFollowASymbolicLink) {
    const LoggedLines log;
    const fs::path target = log.folder() / "target";
    writeFile(target, "somebody's file");
    fs::create_symlink(target, log.file());

    const std::string printed = outputOf("not there");

    EXPECT_EQ(withoutStamp(printed), "not there\n");
    EXPECT_EQ(contentOf(target), "somebody's file");
    EXPECT_TRUE(fs::is_symlink(log.file()));
}

TEST(DevLog, DoesNotCreateWhatADanglingLinkNames) {
    const LoggedLines log;
    const fs::path target = log.folder() / "target";
    fs::create_symlink(target, log.file());

    DevLog::write("not there");

    EXPECT_FALSE(fs::exists(target));
}

TEST(DevLog, DoesNotWaitForTheReaderOfAPipe) {
    const LoggedLines log;
    ASSERT_EQ(::mkfifo(log.file().c_str(), 0600), 0);

    const std::string printed = outputOf("goes on");

    EXPECT_EQ(withoutStamp(printed), "goes on\n");
}

TEST(DevLog, StaysSilentWhenTheFolderIsMissingOrNoFolder) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "file";
    writeFile(file, "content");
    for (const fs::path& parent : {folder.path() / "missing", file}) {
        DevLog::setPath((parent / "vireline.log").string());

        EXPECT_EQ(withoutStamp(outputOf("still printed")), "still printed\n");
    }
    DevLog::setPath(std::nullopt);

    EXPECT_FALSE(fs::exists(folder.path() / "missing"));
    EXPECT_EQ(contentOf(file), "content");
}

TEST(DevLog, LeavesAFolderAtItsPlaceAlone) {
    const LoggedLines log;
    fs::create_directory(log.file());

    DevLog::write("nowhere");

    EXPECT_TRUE(fs::is_directory(log.file()));
    EXPECT_EQ(std::distance(fs::directory_iterator{log.folder()}, {}), 1);
}

TEST(DevLog, GoesOnPrintingWhenSomethingStandsWhereTheNewFileIsMade) {
    const LoggedLines log;
    const fs::path inTheWay = log.file().string() + ".new";
    fs::create_directories(inTheWay / "with content");

    EXPECT_EQ(withoutStamp(outputOf("still printed")), "still printed\n");

    EXPECT_FALSE(fs::exists(log.file()));
    EXPECT_TRUE(fs::exists(inTheWay / "with content"));
}

TEST(DevLog, TellsWhereItsFileIs) {
    {
        const LoggedLines log;
        EXPECT_EQ(DevLog::path(), log.file().string());
    }
    EXPECT_EQ(DevLog::path(), std::nullopt);
}

}
}
