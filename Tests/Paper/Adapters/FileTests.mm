// Files: leftovers of interrupted saves, things that are not regular files, and descriptor leaks.
#include "Cocoa/Paper.hpp"
#include "Files/DispatchFileEvents.hpp"
#include "Files/FoundationFileSystem.hpp"
#include "Files/FoundationTrash.hpp"
#include "Files/FoundationUserFolders.hpp"
#include "Foundation/ReplacementNames.hpp"
#include "Support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace vireline::macos {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
protected:
    [[nodiscard]] FileURL at(const std::string& name) const { return root.appending(name); }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return at(name).path(); }

    /// Creates a file with mode 0600, as an interrupted save leaves it.
    [[nodiscard]] FileURL leave(std::uint64_t token, mode_t mode = S_IRUSR | S_IWUSR) const {
        const FileURL url = at(ReplacementNames::name("file", token));
        std::ofstream{url.path()} << "half";
        ::chmod(url.path().c_str(), mode);
        return url;
    }

    static std::ptrdiff_t openDescriptors() {
        const fs::directory_iterator all{"/proc/self/fd"};
        return std::distance(begin(all), end(all));
    }

    test::TemporaryFolder folder;
    FileURL root = FileURL::fromPath(folder.path().string());
    FoundationFileSystem port;
};

TEST_F(Files, OfOthersAreNotTakenForLeftOver) {
    const FileURL own = leave(1);
    const FileURL shared = leave(2, S_IRUSR | S_IWUSR | S_IRGRP);
    const FileURL linked = leave(3);
    fs::create_hard_link(linked.path(), pathOf("another name"));
    const FileURL inUse = leave(4);
    const int held = ::open(inUse.path().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    const FileURL directory = at(ReplacementNames::name("file", 5));
    fs::create_directory(directory.path());

    ASSERT_TRUE(port.writeAtomically(at("file"), "whole"));

    EXPECT_FALSE(port.exists(own));
    EXPECT_TRUE(port.exists(shared));
    EXPECT_TRUE(port.exists(linked));
    EXPECT_TRUE(port.exists(inUse));
    EXPECT_TRUE(port.exists(directory));
    ::close(held);
}

TEST_F(Files, ThatAreWrittenAreTheUsersAlone) {
    ASSERT_TRUE(port.writeAtomically(at("file"), "mine"));
    struct stat found{};
    ASSERT_EQ(::stat(pathOf("file").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
    ASSERT_TRUE(port.createFolder(at("made/below")));
    ASSERT_EQ(::stat(pathOf("made/below").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0700U);
}

TEST_F(Files, AreRefusedWithoutWaitingIfTheyArePipes) {
    ASSERT_EQ(::mkfifo(pathOf("pipe").c_str(), S_IRUSR | S_IWUSR), 0);
    const auto read = port.read(at("pipe"), 10);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, EINVAL);
}

TEST_F(Files, LeaveNoDescriptorOpenWhateverFails) {
    fs::create_directory(pathOf("folder"));
    std::ofstream{pathOf("long")} << "longer than allowed";
    static_cast<void>(leave(1, S_IRUSR | S_IWUSR | S_IRGRP));
    static_cast<void>(leave(2));
    const auto before = openDescriptors();
    @autoreleasepool {
        EXPECT_FALSE(port.read(at("long"), 3));
        EXPECT_FALSE(port.read(at("folder"), 3));
        EXPECT_FALSE(port.read(at("missing"), 3));
        EXPECT_FALSE(port.writeAtomically(at("folder"), "x"));
        EXPECT_FALSE(port.writeAtomically(at("missing/file"), "x"));
        EXPECT_TRUE(port.writeAtomically(at("file"), "x"));
    }
    EXPECT_EQ(openDescriptors(), before);
    for (const auto& entry : fs::directory_iterator{folder.path()})
        EXPECT_FALSE(ReplacementNames::isName(entry.path().filename().string(), "folder"));
}

TEST_F(Files, AreWatchedWithADescriptorThatGoesWithTheWatch) {
    DispatchFileEvents events;
    const auto before = openDescriptors();
    const auto missing = events.watch(at("missing"), [](FileEventSet) {});
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, ENOENT);
    std::ofstream{pathOf("file")} << "text";
    @autoreleasepool {
        auto watch = events.watch(at("file"), [](FileEventSet) {});
        ASSERT_TRUE(watch);
        EXPECT_EQ(paper::fileWatches(), 1U);
        watch->reset();
        paper::drain();
    }
    EXPECT_EQ(paper::fileWatches(), 0U);
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(Files, ThatCannotBeTrashedAreReported) {
    paper::setHome(folder.path().string());
    std::ofstream{pathOf("letter.txt")} << "Dear";
    paper::lockFolder(pathOf("locked"));
    std::vector<int> outcomes;
    const auto notes = [&](Result<void> result) {
        outcomes.push_back(result ? 0 : result.error().code);
    };
    @autoreleasepool {
        FoundationTrash trash;
        trash.moveToTrash(at("locked/file"), notes);
        trash.moveToTrash(at("letter.txt"), notes);
        EXPECT_TRUE(outcomes.empty());
        paper::drain();
    }
    EXPECT_EQ(outcomes, (std::vector{EPERM, 0}));
    EXPECT_TRUE(port.exists(at(".Trash/letter.txt")));
}

TEST_F(Files, OfTheUserLieWhereTheSystemSays) {
    paper::setHome("/Users/ada");
    const FoundationUserFolders folders;
    EXPECT_EQ(folders.home(), FileURL::fromPath("/Users/ada"));
    EXPECT_EQ(folders.applicationSupport(),
              std::vector{FileURL::fromPath("/Users/ada/Library/Application Support")});
    EXPECT_EQ(folders.downloads(), FileURL::fromPath("/Users/ada/Downloads"));
    EXPECT_EQ(folders.trash(), FileURL::fromPath("/Users/ada/.Trash"));
}

}
}
