#include "Files/PosixFileSystem.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Linux/OrdinaryUser.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace vireline::xdg {
namespace {

namespace fs = std::filesystem;

class PosixFileSystemTest : public testing::Test {
protected:
    [[nodiscard]] std::string content(const FileURL& url) const {
        return fileSystem.read(url, 1 << 20).value_or("<unreadable>");
    }

    /// The names of the entries in the test's folder.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator{temporary.path()})
            found.push_back(entry.path().filename());
        std::ranges::sort(found);
        return found;
    }

    static mode_t mode(const FileURL& url) {
        struct stat found{};
        return ::lstat(url.path().c_str(), &found) == 0 ? found.st_mode & 07777U : 0;
    }

    using Names = std::vector<std::string>;

    test::TemporaryFolder temporary;
    FileURL folder = test::urlOf(temporary.path());
    FileURL file = folder.appending("preferences.json");
    PosixFileSystem fileSystem;
};

/// A file system with four pages, if mounting is allowed here.
class TinyDisk : private NonCopyable {
public:
    explicit TinyDisk(const FileURL& folder) : folder_(folder), isMounted_(mountOn(folder)) {}
    ~TinyDisk() {
        if (isMounted_)
            ::umount2(folder_.path().c_str(), MNT_DETACH);
    }

    [[nodiscard]] bool isMounted() const { return isMounted_; }

private:
    static bool mountOn(const FileURL& folder) {
        test::makeFolder(folder);
        return ::mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=16k") == 0;
    }

    FileURL folder_;
    bool isMounted_;
};

TEST_F(PosixFileSystemTest, ReadsBackWhatItWrote) {
    const std::string text{"a\0b\n", 4};

    ASSERT_TRUE(fileSystem.writeAtomically(file, text));

    EXPECT_EQ(fileSystem.read(file, 4), text);
}

TEST_F(PosixFileSystemTest, WritesForTheUserAloneAndLeavesNothingElseBehind) {
    ASSERT_TRUE(fileSystem.writeAtomically(file, "one"));
    ASSERT_TRUE(fileSystem.writeAtomically(file, "two"));

    EXPECT_EQ(content(file), "two");
    EXPECT_EQ(mode(file), 0600U);
    EXPECT_EQ(names(), Names{"preferences.json"});
}

TEST_F(PosixFileSystemTest, LeavesAReaderOfTheOldFileUndisturbed) {
    ASSERT_TRUE(fileSystem.writeAtomically(file, "old"));
    std::ifstream reader{file.path()};

    ASSERT_TRUE(fileSystem.writeAtomically(file, "new"));

    std::string seen;
    reader >> seen;
    EXPECT_EQ(seen, "old");
}

TEST_F(PosixFileSystemTest, WritesThroughTheUsersOwnLinkToTheirOwnFile) {
    const FileURL kept = folder.appending("dotfiles/vireline.json");
    test::makeFolder(kept.parent());
    test::overwrite(kept, "old");
    for (const std::string& link : {kept.path(), std::string{"dotfiles/vireline.json"}}) {
        fs::remove(file.path());
        fs::create_symlink(link, file.path());

        ASSERT_TRUE(fileSystem.writeAtomically(file, "by " + link));

        EXPECT_TRUE(fs::is_symlink(file.path()));
        EXPECT_FALSE(fs::is_symlink(kept.path()));
        EXPECT_EQ(content(kept), "by " + link);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator{kept.parent().path()}, {}), 1);
}

TEST_F(PosixFileSystemTest, MakesTheFileThatTheUsersOwnLinkWaitsFor) {
    test::makeFolder(folder.appending("dotfiles"));
    fs::create_symlink("dotfiles/next", file.path());
    fs::create_symlink("vireline.json", folder.appending("dotfiles/next").path());

    ASSERT_TRUE(fileSystem.writeAtomically(file, "mine"));

    EXPECT_EQ(content(folder.appending("dotfiles/vireline.json")), "mine");
    EXPECT_TRUE(fs::is_symlink(folder.appending("dotfiles/next").path()));
}

/// A file or folder in the test's folder that belongs to another user. Only root can give files
/// away, so without root it belongs to the system.
class OthersProperty {
public:
    explicit OthersProperty(const FileURL& folder) : folder_(folder.appending("theirs")) {
        if (::geteuid() != 0) {
            folder_ = FileURL::fromPath("/etc");
            return;
        }
        test::makeFolder(folder_);
        test::overwrite(file(), "precious");
        test::giveAway(folder_);
        test::giveAway(file());
    }

    [[nodiscard]] FileURL file() const { return folder_.appending("passwd"); }
    [[nodiscard]] FileURL missing() const { return folder_.appending("vireline-test"); }

private:
    FileURL folder_;
};

TEST_F(PosixFileSystemTest, ReplacesALinkToAnotherUsersFile) {
    const OthersProperty others{folder};
    const std::string before = content(others.file());
    fs::create_symlink(others.file().path(), file.path());

    ASSERT_TRUE(fileSystem.writeAtomically(file, "mine"));

    EXPECT_EQ(content(others.file()), before);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file.path())));
    EXPECT_EQ(content(file), "mine");
}

TEST_F(PosixFileSystemTest, ReplacesALinkIntoAnotherUsersFolder) {
    const OthersProperty others{folder};
    fs::create_symlink(others.missing().path(), file.path());

    ASSERT_TRUE(fileSystem.writeAtomically(file, "mine"));

    EXPECT_FALSE(fileSystem.exists(others.missing()));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file.path())));
}

TEST_F(PosixFileSystemTest, ReplacesALinkThatAnotherUserPlanted) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make a link look like another user's";
    const FileURL victim = folder.appending("victim");
    test::overwrite(victim, "precious");
    fs::create_symlink(victim.path(), file.path());
    test::giveAway(file);

    ASSERT_TRUE(fileSystem.writeAtomically(file, "mine"));

    EXPECT_EQ(content(victim), "precious");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file.path())));
}

TEST_F(PosixFileSystemTest, ReplacesLinksThatLeadNowhere) {
    for (const char* const link : {"preferences.json", "none/file", ".."}) {
        fs::remove(file.path());
        fs::create_symlink(link, file.path());

        ASSERT_TRUE(fileSystem.writeAtomically(file, "mine"));

        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file.path())));
        EXPECT_EQ(names(), Names{"preferences.json"});
    }
}

TEST_F(PosixFileSystemTest, KeepsTheOldFileWhenTheFolderIsReadOnly) {
    ASSERT_TRUE(fileSystem.writeAtomically(file, "old"));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);

    const auto written = [&] {
        const test::OrdinaryUser user;
        return fileSystem.writeAtomically(file, "new");
    }();
    const auto made = [&] {
        const test::OrdinaryUser user;
        return fileSystem.createFolder(folder.appending("Vireline"));
    }();

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, EACCES);
    EXPECT_EQ(written.error().description, file.path() + ": Permission denied");
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().code, EACCES);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(content(file), "old");
    EXPECT_EQ(names(), Names{"preferences.json"});
}

TEST_F(PosixFileSystemTest, KeepsTheOldFileWhenTheDiskIsFull) {
    const FileURL disk = folder.appending("disk");
    const TinyDisk mounted{disk};
    if (!mounted.isMounted())
        GTEST_SKIP() << "mounting a file system is not allowed here";
    const FileURL onDisk = disk.appending("preferences.json");
    ASSERT_TRUE(fileSystem.writeAtomically(onDisk, "old"));

    const auto written = fileSystem.writeAtomically(onDisk, std::string(64UL << 10U, 'x'));

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, ENOSPC);
    EXPECT_EQ(content(onDisk), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator{disk.path()}, {}), 1);
}

TEST_F(PosixFileSystemTest, KeepsTheOldFileWhenItMayNotWriteAllOfTheNew) {
    ASSERT_TRUE(fileSystem.writeAtomically(file, "old"));
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tiny{.rlim_cur = 100, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);

    const auto written = fileSystem.writeAtomically(file, std::string(1000, 'x'));

    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    static_cast<void>(std::signal(SIGXFSZ, ignored));
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, EFBIG);
    EXPECT_EQ(content(file), "old");
    EXPECT_EQ(names(), Names{"preferences.json"});
}

TEST_F(PosixFileSystemTest, SaysThatTheFolderOfANewFileIsMissing) {
    const auto written = fileSystem.writeAtomically(folder.appending("none/file"), "x");

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, ENOENT);
    EXPECT_EQ(written.error().description, folder.path() + "/none/file: No such file or directory");
}

TEST_F(PosixFileSystemTest, RefusesFilesThatAreTooLongWithoutReadingThem) {
    test::overwrite(file, "12345");
    fs::resize_file(file.path(), 100UL << 20U);

    const auto read = fileSystem.read(file, 1 << 20);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, EFBIG);
}

TEST_F(PosixFileSystemTest, ReadsAFileOfExactlyTheMaximum) {
    test::overwrite(file, "12345");

    EXPECT_TRUE(fileSystem.read(file, 5));
    EXPECT_FALSE(fileSystem.read(file, 4));
}

TEST_F(PosixFileSystemTest, BoundsFilesThatDoNotSayTheirLength) {
    const auto all = fileSystem.read(FileURL::fromPath("/proc/self/maps"), 64UL << 20U);
    ASSERT_TRUE(all);
    EXPECT_FALSE(all->empty());

    const auto bounded = fileSystem.read(FileURL::fromPath("/proc/self/maps"), 10);
    ASSERT_FALSE(bounded);
    EXPECT_EQ(bounded.error().code, EFBIG);
}

TEST_F(PosixFileSystemTest, NeverWaitsForPipesDevicesOrFolders) {
    ASSERT_EQ(::mkfifo(file.path().c_str(), 0600), 0);
    EXPECT_FALSE(fileSystem.read(file, 100));
    EXPECT_FALSE(fileSystem.read(FileURL::fromPath("/dev/zero"), 100));

    const auto asFolder = fileSystem.read(folder, 100);
    ASSERT_FALSE(asFolder);
    EXPECT_EQ(asFolder.error().code, EISDIR);
}

TEST_F(PosixFileSystemTest, ReplacesAPipeThatStandsInTheFilesPlace) {
    ASSERT_EQ(::mkfifo(file.path().c_str(), 0600), 0);

    ASSERT_TRUE(fileSystem.writeAtomically(file, "mine"));

    EXPECT_EQ(content(file), "mine");
}

TEST_F(PosixFileSystemTest, CreatesAllMissingFoldersForTheUserAlone) {
    const FileURL deep = folder.appending("share/Vireline");

    ASSERT_TRUE(fileSystem.createFolder(deep));

    EXPECT_TRUE(fs::is_directory(deep.path()));
    EXPECT_EQ(mode(deep), 0700U);
    EXPECT_EQ(mode(deep.parent()), 0700U);
}

TEST_F(PosixFileSystemTest, LeavesAFolderThatExistsAsItIs) {
    const FileURL shared = folder.appending("shared");
    test::makeFolder(shared);
    ASSERT_EQ(::chmod(shared.path().c_str(), 0755), 0);

    EXPECT_TRUE(fileSystem.createFolder(shared));

    EXPECT_EQ(mode(shared), 0755U);
}

TEST_F(PosixFileSystemTest, CannotMakeAFolderWhereAFileStands) {
    test::overwrite(file, "x");

    EXPECT_FALSE(fileSystem.createFolder(file));
    EXPECT_FALSE(fileSystem.createFolder(file.appending("below")));
}

TEST_F(PosixFileSystemTest, CountsALinkAsWhatItLeadsTo) {
    const FileURL link = folder.appending("link");
    fs::create_symlink(file.path(), link.path());
    EXPECT_FALSE(fileSystem.exists(link));

    test::overwrite(file, "x");
    EXPECT_TRUE(fileSystem.exists(link));
    EXPECT_TRUE(fileSystem.exists(folder));
    EXPECT_FALSE(fileSystem.exists(folder.appending("none")));
}

}
}
