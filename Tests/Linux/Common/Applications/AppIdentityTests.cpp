#include "Linux/Common/Applications/AppIdentityFixtures.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace vireline {
namespace {

using xdg::AppIdentity::appOf;
using xdg::fixtures::IdentityCase;
using xdg::fixtures::indexOf;

class AppIdentityOf : public testing::TestWithParam<IdentityCase> {};

TEST_P(AppIdentityOf, IsTheOneRightTile) {
    const auto app = xdg::fixtures::identify(GetParam());

    EXPECT_EQ(app.bundleID, GetParam().expected);
    EXPECT_EQ(app.hasEntry, GetParam().hasEntry);
}

std::string caseName(const testing::TestParamInfo<IdentityCase>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Toolkits, AppIdentityOf, testing::ValuesIn(xdg::fixtures::toolkitCases()),
                         caseName);
INSTANTIATE_TEST_SUITE_P(Classes, AppIdentityOf, testing::ValuesIn(xdg::fixtures::classCases()),
                         caseName);
INSTANTIATE_TEST_SUITE_P(Sandboxes, AppIdentityOf, testing::ValuesIn(xdg::fixtures::sandboxCases()),
                         caseName);
INSTANTIATE_TEST_SUITE_P(Wine, AppIdentityOf, testing::ValuesIn(xdg::fixtures::wineCases()),
                         caseName);
INSTANTIATE_TEST_SUITE_P(WebApps, AppIdentityOf, testing::ValuesIn(xdg::fixtures::webAppCases()),
                         caseName);
INSTANTIATE_TEST_SUITE_P(Programs, AppIdentityOf, testing::ValuesIn(xdg::fixtures::programCases()),
                         caseName);
INSTANTIATE_TEST_SUITE_P(Traps, AppIdentityOf, testing::ValuesIn(xdg::fixtures::trapCases()),
                         caseName);

xdg::WindowTraits windowOfClass(const std::string& className) {
    xdg::WindowTraits window;
    window.className = className;
    return window;
}

TEST(AppIdentity, OurOwnLaunchComesBeforeEverythingElse) {
    const auto index = indexOf({{.id = "launched", .exec = "a"}, {.id = "other", .exec = "b"}});
    auto window = windowOfClass("other");
    window.gtkApplicationID = "other";

    const auto app =
        xdg::AppIdentity::identify(window, {}, index, appOf(index.find("launched")->entry));

    EXPECT_EQ(app.bundleID, "launched");
}

TEST(AppIdentity, AnEntrysAppHasTheEntrysNameAndFile) {
    const auto index = indexOf({{.id = "code", .exec = "code"}});

    const auto app = xdg::AppIdentity::identify(windowOfClass("Code"), {}, index);

    EXPECT_EQ(app, (xdg::IdentifiedApp{.bundleID = "code",
                                       .name = "code",
                                       .path = "/usr/share/applications/code.desktop",
                                       .hasEntry = true}));
}

TEST(AppIdentity, AnAppOfItsOwnIsAtItsExecutable) {
    xdg::ProcessFacts process;
    process.executable = "/opt/odd/tool";

    const auto app =
        xdg::AppIdentity::identify(windowOfClass("Odd"), process, xdg::DesktopEntryIndex{});

    EXPECT_EQ(app, (xdg::IdentifiedApp{.bundleID = "Odd", .name = "Odd", .path = "/opt/odd/tool"}));
}

TEST(AppIdentity, AnAppOfItsOwnWithoutAProcessHasAPathMadeFromItsClass) {
    const auto app = xdg::AppIdentity::identify(windowOfClass("a/b"), {}, xdg::DesktopEntryIndex{});

    EXPECT_EQ(app.path, "/a-b");
}

TEST(AppIdentity, TellsLongCommandLinesApartAtOnce) {
    constexpr int count = 16'000;
    xdg::ProcessFacts process;
    process.executable = "/usr/bin/tool";
    process.arguments = {"/usr/bin/tool"};
    std::string exec = "/usr/bin/tool";
    for (int i = 0; i < count; ++i) {
        process.arguments.push_back(std::to_string(i));
        exec += ' ' + std::to_string(count - 1 - i);
    }
    const auto index = indexOf({{.id = "one", .exec = exec}, {.id = "other", .exec = "tool x"}});

    const std::clock_t began = std::clock();
    const auto app = xdg::AppIdentity::identify(windowOfClass("X"), process, index);

    EXPECT_EQ(app.bundleID, "one");
    // With sorted look-ups this takes hundredths of a second even under sanitizers; with linear
    // ones, many seconds.
    EXPECT_LT(std::clock() - began, 2 * CLOCKS_PER_SEC);
}

TEST(WindowTraits, WMClassHasTwoHalves) {
    xdg::WindowTraits window;

    window.setWMClass(std::string_view{"xterm\0XTerm\0", 12});

    EXPECT_EQ(window.instance, "xterm");
    EXPECT_EQ(window.className, "XTerm");
}

TEST(WindowTraits, WMClassOfNothingButZeroBytesIsEmpty) {
    xdg::WindowTraits window;

    window.setWMClass(std::string_view{"\0\0\0\0", 4});

    EXPECT_EQ(window, xdg::WindowTraits{});
}

TEST(WindowTraits, WMClassWithoutItsEndIsTakenAsFarAsItGoes) {
    xdg::WindowTraits window;

    window.setWMClass(std::string_view{"only", 4});

    EXPECT_EQ(window.instance, "only");
    EXPECT_EQ(window.className, "");
}

TEST(WindowTraits, WMClassOfAnyLengthIsBounded) {
    xdg::WindowTraits window;

    window.setWMClass(std::string(4'000'000, 'x') + '\0' + std::string(4'000'000, 'y'));

    EXPECT_EQ(window.instance.size(), 256U);
    EXPECT_EQ(window.className.size(), 256U);
}

}
}
