/// The files that an interrupted save leaves behind, and who may remove them.
#include "Files/FileDescriptor.hpp"
#include "Files/PosixFileSystem.hpp"
#include "Foundation/ReplacementNames.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace vireline::xdg {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view settingsName = "preferences.json";

class LeftoversTest : public testing::Test {
protected:
    using Names = std::vector<std::string>;

    [[nodiscard]] Names names() const {
        Names found;
        for (const auto& entry : fs::directory_iterator{temporary.path()})
            found.push_back(entry.path().filename());
        std::ranges::sort(found);
        return found;
    }

    /// Forks a process that runs `work` and then exits.
    [[nodiscard]] static pid_t processOf(const std::function<void()>& work) {
        const pid_t child = ::fork();
        if (child == 0) {
            work();
            ::_exit(0);
        }
        return child;
    }
    /// The signal that terminated the child, or 0.
    [[nodiscard]] static int endOf(pid_t child) {
        int status = 0;
        return ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

    /// Kills a process in the middle of its save.
    void cutOffASave() {
        const pid_t child = processOf([this] {
            constexpr rlimit oneKilobyte{1024, 1024};
            ::signal(SIGXFSZ, SIG_DFL);
            if (::setrlimit(RLIMIT_FSIZE, &oneKilobyte) == 0)
                static_cast<void>(fileSystem.writeAtomically(file, std::string(4096, 'x')));
        });
        ASSERT_EQ(endOf(child), SIGXFSZ);
    }

    [[nodiscard]] fs::path replacement(std::uint64_t token) const {
        return temporary.path() / ReplacementNames::name(settingsName, token);
    }
    /// Creates the file as a save does.
    [[nodiscard]] FileDescriptor make(const fs::path& path, mode_t mode = 0600) const {
        FileDescriptor made{::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600)};
        EXPECT_TRUE(made);
        EXPECT_EQ(::fchmod(made.get(), mode), 0);
        return made;
    }

    test::TemporaryFolder temporary;
    FileURL file = test::urlOf(temporary.path()).appending(settingsName);
    PosixFileSystem fileSystem;
};

TEST_F(LeftoversTest, TheNextSaveRemovesWhatOneThatWasCutOffLeft) {
    ASSERT_TRUE(fileSystem.writeAtomically(file, "old"));
    cutOffASave();
    cutOffASave();
    ASSERT_FALSE(names().empty());
    ASSERT_EQ(fileSystem.read(file, 100), "old");

    ASSERT_TRUE(fileSystem.writeAtomically(file, "new"));

    EXPECT_EQ(names(), Names{std::string{settingsName}});
    EXPECT_EQ(fileSystem.read(file, 100), "new");
}

TEST_F(LeftoversTest, ASaveLeavesNothingBehindHoweverManyProcessesWereKilledBefore) {
    constexpr int kills = 100;
    std::mt19937 random{20'250'314};
    std::uniform_int_distribution<useconds_t> microseconds{0, 3'000};
    std::size_t most = 0;
    for (int i = 0; i < kills; ++i) {
        const pid_t child = processOf([this] {
            while (true)
                static_cast<void>(fileSystem.writeAtomically(file, "a record"));
        });
        ::usleep(microseconds(random));
        ::kill(child, SIGKILL);
        ASSERT_EQ(endOf(child), SIGKILL);
        most = std::max(most, names().size());
    }
    // The file itself, and at most one leftover.
    EXPECT_LE(most, 2U);

    ASSERT_TRUE(fileSystem.writeAtomically(file, "the last"));

    EXPECT_EQ(names(), Names{std::string{settingsName}});
}

TEST_F(LeftoversTest, TheFileOfASaveThatIsStillGoingOnStays) {
    const FileDescriptor other = make(replacement(1));
    ASSERT_EQ(::flock(other.get(), LOCK_EX | LOCK_NB), 0);

    ASSERT_TRUE(fileSystem.writeAtomically(file, "new"));

    EXPECT_TRUE(fs::exists(replacement(1)));
}

TEST_F(LeftoversTest, SavesOfManyProcessesAtATimeAllSucceed) {
    constexpr int processes = 4;
    constexpr int saves = 50;
    std::vector<pid_t> children;
    children.reserve(processes);
    for (int i = 0; i < processes; ++i) {
        children.push_back(processOf([this] {
            for (int save = 0; save < saves; ++save) {
                if (!fileSystem.writeAtomically(file, "a record"))
                    ::abort();
            }
        }));
    }

    for (const pid_t child : children)
        EXPECT_EQ(endOf(child), 0);
    EXPECT_EQ(names(), Names{std::string{settingsName}});
}

TEST_F(LeftoversTest, WhatTheProgramCannotHaveMadeStays) {
    static_cast<void>(make(replacement(1), 0640));
    static_cast<void>(make(temporary.path() / "original", 0600));
    fs::create_hard_link(temporary.path() / "original", replacement(2));
    fs::create_symlink(temporary.path() / "original", replacement(3));
    fs::create_directory(replacement(4));
    ASSERT_EQ(::mkfifo(replacement(5).c_str(), 0600), 0);
    static_cast<void>(make(temporary.path() / ".preferences.json.1234567890"));
    static_cast<void>(make(temporary.path() / ReplacementNames::name("other.json", 6)));
    const Names before = names();

    ASSERT_TRUE(fileSystem.writeAtomically(file, "new"));

    Names after = names();
    std::erase(after, settingsName);
    EXPECT_EQ(after, before);
}

TEST_F(LeftoversTest, WhatIsLeftOfASaveThroughALinkGoesFromWhereTheLinkLeads) {
    const fs::path elsewhere = temporary.path() / "elsewhere";
    fs::create_directory(elsewhere);
    fs::create_symlink(elsewhere / settingsName, file.path());
    static_cast<void>(make(elsewhere / ReplacementNames::name(settingsName, 1)));

    ASSERT_TRUE(fileSystem.writeAtomically(file, "new"));

    EXPECT_EQ(std::distance(fs::directory_iterator{elsewhere}, fs::directory_iterator{}), 1);
}

}
}
