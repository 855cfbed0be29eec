#include "Files/GioTrash.hpp"
#include "Linux/Environment.hpp"
#include "Linux/EventLoop.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <map>

namespace vireline::xdg {
namespace {

/// GIO looks up the user's folders only once per process, so each of these tests runs in a new
/// process.
class GioTrashTest : public testing::Test {
protected:
    GioTrashTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    test::TemporaryFolder temporary;
    FileURL home = test::urlOf(temporary.path());
    test::EnvironmentVariable homeVariable{"HOME", home.path()};
    test::EnvironmentVariable dataVariable{"XDG_DATA_HOME", std::nullopt};
};

/// Exits with a status that tells whether all expectations were met.
[[noreturn]] void endProcess(const FileURL& home) {
    test::removeAll(home);
    std::_Exit(testing::Test::HasFailure() ? 1 : 0);
}

void trashThreeOfWhichOneIsMissing(const FileURL& home) {
    GioTrash trash;
    std::map<std::string, Result<void>> outcomes;
    test::testApplication();
    for (const char* name : {"first", "missing", "third"}) {
        trash.moveToTrash(home.appending(name), [&outcomes, name](Result<void> outcome) {
            outcomes.emplace(name, std::move(outcome));
        });
    }
    EXPECT_TRUE(outcomes.empty()) << "completed within the call";

    EXPECT_TRUE(test::waitUntil([&] { return outcomes.size() == 3; }));

    const FileURL kept = home.appending(".local/share/Trash/files");
    EXPECT_TRUE(outcomes["first"]);
    EXPECT_TRUE(outcomes["third"]);
    EXPECT_TRUE(std::filesystem::exists(kept.appending("first").path()));
    EXPECT_TRUE(std::filesystem::exists(kept.appending("third").path()));
    EXPECT_FALSE(outcomes["missing"]);
    if (!outcomes["missing"]) {
        EXPECT_FALSE(outcomes["missing"].error().description.empty());
    }
    endProcess(home);
}

TEST_F(GioTrashTest, MovesFilesAndReportsEachOnce) {
    test::overwrite(home.appending("first"), "1");
    test::overwrite(home.appending("third"), "3");

    EXPECT_EXIT(trashThreeOfWhichOneIsMissing(home), testing::ExitedWithCode(0), "");
}

}
}
