#include "Applications/Identity/ProcessFacts.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

namespace vireline {
namespace {

using xdg::ProcessFacts;
namespace ProcessInspection = xdg::ProcessInspection;

ProcessFacts inGroup(std::string_view text) {
    ProcessFacts facts;
    ProcessInspection::addControlGroup(facts, text);
    return facts;
}

TEST(ProcessFacts, ArgumentsAreEndedByZeroBytes) {
    EXPECT_EQ(ProcessInspection::argumentsIn(std::string_view{"a\0b c\0\0", 7}),
              (std::vector<std::string>{"a", "b c", ""}));
}

TEST(ProcessFacts, TheControlGroupNamesASnapsProgram) {
    const auto facts = inGroup("0::/user.slice/app.slice/"
                               "snap.code-insiders.url\\x2dhandler-"
                               "0e6b3c1a-6d0e-4f5e-9a51-8f8f0a1c2d3e.scope\n");

    EXPECT_EQ(facts.snap, "code-insiders");
    EXPECT_EQ(facts.snapApp, "url-handler");
}

TEST(ProcessFacts, TheControlGroupNamesAFlatpak) {
    EXPECT_EQ(inGroup("0::/x/app-flatpak-org.kde.krita-4711.scope\n").flatpakID, "org.kde.krita");
    EXPECT_EQ(inGroup("0::/x/app-flatpak-org.a.b\\x2dc-4711.scope").flatpakID, "org.a.b-c");
}

TEST(ProcessFacts, OtherControlGroupsSayNothing) {
    EXPECT_EQ(inGroup(""), ProcessFacts{});
    EXPECT_EQ(inGroup("0::/init.scope\n"), ProcessFacts{});
    EXPECT_EQ(inGroup("0::/snap.scope\n0::/snap.\n"), ProcessFacts{});
    EXPECT_EQ(inGroup("0::/mysnap.a.b-1.scope\n"), ProcessFacts{});
}

TEST(ProcessFacts, TheSandboxesOwnFileNamesAFlatpak) {
    EXPECT_EQ(ProcessInspection::flatpakIDIn("[Instance]\nname=no\n[Application]\nname=org.x.Y\n"),
              "org.x.Y");
    EXPECT_EQ(ProcessInspection::flatpakIDIn("[Instance]\nname=no\n"), "");
}

TEST(ProcessFacts, OfALivingProcessAreRead) {
    const auto facts = ProcessInspection::read(getpid());

    EXPECT_TRUE(facts.executable.ends_with("LinuxTests"));
    ASSERT_FALSE(facts.arguments.empty());
    EXPECT_TRUE(facts.arguments.front().ends_with("LinuxTests"));
}

TEST(ProcessFacts, AreEmptyWithoutSuchAProcess) {
    EXPECT_EQ(ProcessInspection::read(0), ProcessFacts{});
    EXPECT_EQ(ProcessInspection::read(-1), ProcessFacts{});
    EXPECT_EQ(ProcessInspection::read(2'000'000'000), ProcessFacts{});
}

}
}
