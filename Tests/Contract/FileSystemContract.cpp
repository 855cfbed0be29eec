/// The contract of FileSystem, run against the fake and the real adapter.
#include "Foundation/ReplacementNames.hpp"
#include "Host.hpp"
#include "Support/FakeFiles.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <string>
#include <system_error>

namespace vireline {
namespace {

struct FakeFiles {
    test::FakeFileSystem port;
    FileURL root = FileURL::fromPath("/Users/ada/Library");

    FakeFiles() { port.putFolder(root); }
};

struct RealFiles {
    test::HostFileSystem port;
    test::TemporaryFolder temporary;
    FileURL root = FileURL::fromPath(temporary.path().string());
};

template <class Files>
class FileSystemContract : public testing::Test {
protected:
    [[nodiscard]] FileURL at(std::string_view name) const { return files.root.appending(name); }

    Files files;
    FileSystem& port = files.port;
};

using FileSystems = testing::Types<FakeFiles, RealFiles>;
TYPED_TEST_SUITE(FileSystemContract, FileSystems);

int codeOf(std::errc error) {
    return static_cast<int>(error);
}

TYPED_TEST(FileSystemContract, ReadsBackWhatWasWritten) {
    const std::string bytes{"\0binary\xFF\n", 9};

    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), bytes));

    EXPECT_TRUE(this->port.exists(this->at("file")));
    EXPECT_EQ(this->port.read(this->at("file"), bytes.size()), bytes);
}

TYPED_TEST(FileSystemContract, ReplacesTheWholeContent) {
    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), "a long content"));
    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), "short"));

    EXPECT_EQ(this->port.read(this->at("file"), 100), "short");
}

TYPED_TEST(FileSystemContract, WritesAnEmptyFile) {
    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), ""));

    EXPECT_TRUE(this->port.exists(this->at("file")));
    EXPECT_EQ(this->port.read(this->at("file"), 0), "");
}

TYPED_TEST(FileSystemContract, RefusesToReadMoreThanTheMaximum) {
    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), "12345"));

    EXPECT_TRUE(this->port.read(this->at("file"), 5));
    const auto read = this->port.read(this->at("file"), 4);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, codeOf(std::errc::file_too_large));
}

TYPED_TEST(FileSystemContract, FailsToReadWhatIsMissing) {
    EXPECT_FALSE(this->port.exists(this->at("missing")));

    const auto read = this->port.read(this->at("missing"), 100);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, codeOf(std::errc::no_such_file_or_directory));
    EXPECT_FALSE(read.error().description.empty());
}

TYPED_TEST(FileSystemContract, FailsToReadAFolder) {
    const auto read = this->port.read(this->files.root, 100);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, codeOf(std::errc::is_a_directory));
}

TYPED_TEST(FileSystemContract, FailsToWriteIntoAMissingFolder) {
    const auto written = this->port.writeAtomically(this->at("missing/file"), "x");

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, codeOf(std::errc::no_such_file_or_directory));
    EXPECT_FALSE(this->port.exists(this->at("missing")));
}

TYPED_TEST(FileSystemContract, FailsToWriteOverAFolder) {
    ASSERT_TRUE(this->port.createFolder(this->at("folder")));

    const auto written = this->port.writeAtomically(this->at("folder"), "x");

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, codeOf(std::errc::is_a_directory));
}

TYPED_TEST(FileSystemContract, RemovesWhatAnEarlierWriteThatWasCutOffLeftBehind) {
    const FileURL left = this->at(ReplacementNames::name("file", 7));
    const FileURL other = this->at(ReplacementNames::name("other", 7));
    const FileURL similar = this->at(".file.7");
    for (const FileURL& url : {left, other, similar})
        ASSERT_TRUE(this->port.writeAtomically(url, "half"));

    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), "new"));

    EXPECT_FALSE(this->port.exists(left));
    EXPECT_TRUE(this->port.exists(other));
    EXPECT_TRUE(this->port.exists(similar));
    EXPECT_EQ(this->port.read(this->at("file"), 100), "new");
}

TYPED_TEST(FileSystemContract, CreatesAFolderWithAllThatAreMissingAboveIt) {
    ASSERT_TRUE(this->port.createFolder(this->at("one/two/three")));

    EXPECT_TRUE(this->port.exists(this->at("one/two")));
    EXPECT_TRUE(this->port.writeAtomically(this->at("one/two/three/file"), "x"));
}

// Behaviour: entry-2
TYPED_TEST(FileSystemContract, CreatesAFolderThatExistsWithoutAnError) {
    ASSERT_TRUE(this->port.createFolder(this->at("folder")));
    ASSERT_TRUE(this->port.writeAtomically(this->at("folder/file"), "kept"));

    EXPECT_TRUE(this->port.createFolder(this->at("folder")));

    EXPECT_EQ(this->port.read(this->at("folder/file"), 100), "kept");
}

TYPED_TEST(FileSystemContract, CreatesNoFolderWhereAFileStands) {
    ASSERT_TRUE(this->port.writeAtomically(this->at("file"), "kept"));

    EXPECT_FALSE(this->port.createFolder(this->at("file")));
    EXPECT_FALSE(this->port.createFolder(this->at("file/below")));

    EXPECT_EQ(this->port.read(this->at("file"), 100), "kept");
}

}
}
