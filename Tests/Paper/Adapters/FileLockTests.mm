// Replacements of files, which are marked as in use while they are written: what happens in between
// to them, and to the call that marks them.
#include "Files/FoundationFileSystem.hpp"
#include "Files/Leftovers.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace {

/// What happens just before a file is marked: 0, or the error that the call fails with instead.
std::function<int(int)>& beforeMark() {
    static auto& happens = *new std::function<int(int)>;
    return happens;
}

}

// Stands before the system's own.
extern "C" int flock(int file, int operation) noexcept {
    if (const int error = beforeMark() ? beforeMark()(file) : 0; error != 0) {
        errno = error;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_flock, file, operation));
}

namespace vireline::macos {
namespace {

namespace fs = std::filesystem;

class Marks : public testing::Test, private NonCopyable {
protected:
    ~Marks() override { beforeMark() = nullptr; }

    [[nodiscard]] std::string path(const char* name) const { return folder.path() / name; }
    [[nodiscard]] int make(const char* name) const {
        return ::open(path(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    }
    /// Whether another could mark it.
    [[nodiscard]] bool isFree(const char* name) const {
        const int other = ::open(path(name).c_str(), O_RDONLY | O_CLOEXEC);
        const bool isFree = ::flock(other, LOCK_EX | LOCK_NB) == 0;
        ::close(other);
        return isFree;
    }
    [[nodiscard]] std::string content(const char* name) const {
        std::ifstream in{path(name)};
        return {std::istreambuf_iterator<char>{in}, {}};
    }
    static std::ptrdiff_t openDescriptors() {
        const fs::directory_iterator all{"/proc/self/fd"};
        return std::distance(begin(all), end(all));
    }

    test::TemporaryFolder folder;
};

TEST_F(Marks, AreMadeAlsoWhenASignalInterruptsThem) {
    const int file = make("file");
    int calls = 0;
    beforeMark() = [&](int) { return ++calls < 3 ? EINTR : 0; };
    EXPECT_TRUE(holdAgainstRemoval(file));
    EXPECT_EQ(calls, 3);
    EXPECT_FALSE(isFree("file"));
    ::close(file);
    EXPECT_TRUE(isFree("file"));
}

TEST_F(Marks, AreTriedOnceWhereFilesCannotBeMarked) {
    const int file = make("file");
    int calls = 0;
    beforeMark() = [&](int) {
        ++calls;
        return ENOTSUP;
    };
    EXPECT_TRUE(holdAgainstRemoval(file));
    EXPECT_EQ(calls, 1);
    ::close(file);
}

TEST_F(Marks, ReportAFileThatHasLostItsName) {
    const int file = make("file");
    ::unlink(path("file").c_str());
    EXPECT_FALSE(holdAgainstRemoval(file));
    ::close(file);
}

TEST_F(Marks, ComeTooLateForAReplacementThatWasTakenForLeftOver) {
    std::ofstream{path("settings")} << "old";
    const auto before = openDescriptors();
    int lost = 0;
    // As another process does that cleans up between the making of the file and its mark.
    beforeMark() = [&](int file) {
        if (lost++ == 0)
            fs::remove(fs::read_symlink("/proc/self/fd/" + std::to_string(file)));
        return 0;
    };
    @autoreleasepool {
        FoundationFileSystem port;
        EXPECT_TRUE(port.writeAtomically(
            FileURL::fromPath(folder.path().string()).appending("settings"), "new"));
    }
    EXPECT_EQ(lost, 2);
    EXPECT_EQ(content("settings"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator{folder.path()}, {}), 1);
    EXPECT_EQ(openDescriptors(), before);
}

}
}
