#include "Files/PosixFileSystem.hpp"
#include "Linux/OrdinaryUser.hpp"
#include "Session/AutostartEntry.hpp"
#include "Session/AutostartLoginItem.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>

namespace vireline::xdg {
namespace {

namespace fs = std::filesystem;
using Status = LoginItemService::Status;

/// Starts the user's own program, which exists.
constexpr const char* edited = "[Desktop Entry]\nType=Application\nName=Mine\nExec=sh -c mine\n";

class AutostartLoginItemTest : public testing::Test {
protected:
    [[nodiscard]] std::string content() const {
        return fileSystem.read(entry, 1 << 20).value_or("<none>");
    }
    void put(std::string_view text) {
        ASSERT_TRUE(fileSystem.createFolder(entry.parent()));
        ASSERT_TRUE(fileSystem.writeAtomically(entry, text));
    }

    /// Creates an executable file.
    static std::string program(const fs::path& path) {
        fs::create_directories(path.parent_path());
        std::ofstream{path} << "#!/bin/sh\n";
        fs::permissions(path, fs::perms::owner_all | fs::perms::group_exec |
                                  fs::perms::others_exec | fs::perms::others_read);
        return path.string();
    }

    test::TemporaryFolder temporary;
    PosixFileSystem fileSystem;
    FileURL configHome = test::urlOf(temporary.path()).appending("config");
    FileURL entry = configHome.appending("autostart/vireline.desktop");
    const std::string ours = program(temporary.path() / "bin/vireline");
    AutostartLoginItem item{fileSystem, {configHome, ours, {"XFCE"}}};
};

TEST_F(AutostartLoginItemTest, IsNotRegisteredWithoutAnEntry) {
    EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(AutostartLoginItemTest, IsRegisteredByAnEntryInAFolderThatIsMadeForIt) {
    ASSERT_TRUE(item.registerItem());

    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_EQ(content(), AutostartEntry::make(ours));
}

TEST_F(AutostartLoginItemTest, IsUnregisteredByTheEntrysRemoval) {
    ASSERT_TRUE(item.registerItem());
    ASSERT_TRUE(item.unregisterItem());

    EXPECT_EQ(item.status(), Status::notRegistered);
    EXPECT_FALSE(fs::exists(entry.path()));
    EXPECT_TRUE(item.unregisterItem()) << "what is gone is gone";
}

TEST_F(AutostartLoginItemTest, WaitsForApprovalWhileAnEntryIsSwitchedOff) {
    put(std::string{edited} + "Hidden=true\n");
    EXPECT_EQ(item.status(), Status::requiresApproval);

    ASSERT_TRUE(item.registerItem());

    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_TRUE(content().contains("Exec=sh -c mine"));
}

TEST_F(AutostartLoginItemTest, HidesAnEntryThatItsUserEdited) {
    put(edited);
    EXPECT_EQ(item.status(), Status::enabled);

    ASSERT_TRUE(item.unregisterItem());

    EXPECT_EQ(item.status(), Status::requiresApproval);
    EXPECT_TRUE(content().contains("Exec=sh -c mine"));
}

TEST_F(AutostartLoginItemTest, IsOffWhileTheEntrysProgramIsNotThere) {
    const auto old = program(temporary.path() / "old/vireline");
    put(AutostartEntry::make(old));
    EXPECT_EQ(item.status(), Status::enabled);
    fs::remove(old);
    EXPECT_EQ(item.status(), Status::requiresApproval);

    ASSERT_TRUE(item.registerItem());

    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_EQ(content(), AutostartEntry::make(ours));
}

TEST_F(AutostartLoginItemTest, IsOffWhileTheProgramThatTheEntryAsksForIsNotThere) {
    put(std::string{edited} + "TryExec=/no/such/program\n");
    EXPECT_EQ(item.status(), Status::requiresApproval);

    ASSERT_TRUE(item.registerItem());

    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(AutostartLoginItemTest, SwitchedOnStartsThisProgramFromWhereItIsNow) {
    const auto old = program(temporary.path() / "old/vireline");
    put("[Desktop Entry]\nType=Application\nExec=" + old + " --mine\nHidden=true\n");

    ASSERT_TRUE(item.registerItem());

    EXPECT_EQ(content(), "[Desktop Entry]\nType=Application\nExec=" + ours + " --mine\n");
}

TEST_F(AutostartLoginItemTest, NeverOverwritesAFileThatIsNotAnEntry) {
    put("a note of mine\n");
    EXPECT_EQ(item.status(), Status::notRegistered);

    const auto outcome = item.registerItem();

    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().description, entry.path() + ": Not a desktop entry");
    EXPECT_EQ(content(), "a note of mine\n");
}

TEST_F(AutostartLoginItemTest, FillsAnEmptyFile) {
    put(" \n");
    ASSERT_TRUE(item.registerItem());
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(AutostartLoginItemTest, SaysWhyItCannotWrite) {
    fs::create_directories(configHome.path());
    fs::permissions(configHome.path(), fs::perms::owner_read | fs::perms::owner_exec |
                                           fs::perms::group_exec | fs::perms::others_exec);
    fs::permissions(temporary.path(), fs::perms::all);
    {
        const test::OrdinaryUser rights;
        const auto outcome = item.registerItem();

        ASSERT_FALSE(outcome);
        EXPECT_EQ(outcome.error().code, EACCES);
        EXPECT_TRUE(outcome.error().description.ends_with(": Permission denied"));
    }
    fs::permissions(configHome.path(), fs::perms::owner_all);
}

TEST_F(AutostartLoginItemTest, SaysWhyItCannotRemove) {
    ASSERT_TRUE(item.registerItem());
    const auto forAll = fs::perms::group_read | fs::perms::group_exec | fs::perms::others_read |
                        fs::perms::others_exec;
    for (const fs::path& folder :
         {temporary.path(), fs::path{configHome.path()}, fs::path{entry.parent().path()}})
        fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | forAll);
    fs::permissions(entry.path(),
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    {
        const test::OrdinaryUser rights;
        const auto outcome = item.unregisterItem();

        ASSERT_FALSE(outcome);
        EXPECT_EQ(outcome.error().code, EACCES);
        EXPECT_EQ(item.status(), Status::enabled);
    }
    for (const fs::path& folder :
         {temporary.path(), fs::path{configHome.path()}, fs::path{entry.parent().path()}})
        fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(AutostartLoginItemTest, DoesNotKnowWhetherAnUnreadableEntryIsEnabled) {
    fs::create_directories(entry.path());
    EXPECT_EQ(item.status(), Status::notFound);
    EXPECT_FALSE(item.registerItem());
    EXPECT_FALSE(item.unregisterItem());
}

TEST_F(AutostartLoginItemTest, KnowsItsOwnProgram) {
    EXPECT_TRUE(fs::exists(AutostartLoginItem::ownPath()));
}

}
}
