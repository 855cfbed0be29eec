#include "Applications/Entries/AppCommand.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

namespace vireline {
namespace {

using Words = std::vector<std::string>;
using xdg::AppCommands::fromArguments;
using xdg::AppCommands::fromExec;

TEST(AppCommand, WordsAreSplitAsByAShell) {
    EXPECT_EQ(xdg::AppCommands::words(R"(a "b c"  'd "e' f\ g "h\"i" "")"),
              (Words{"a", "b c", "d \"e", "f g", "h\"i", ""}));
}

TEST(AppCommand, ABackslashInQuotesEscapesOnlyWhatIsSpecialThere) {
    EXPECT_EQ(xdg::AppCommands::words(R"("C:\Program Files\\x" 'a\b')"),
              (Words{R"(C:\Program Files\x)", R"(a\b)"}));
}

TEST(AppCommand, ACommandWhoseQuotesNeverCloseIsNone) {
    EXPECT_EQ(xdg::AppCommands::words("a \"b c"), Words{});
}

TEST(AppCommand, FieldCodesAreNoArguments) {
    const auto command = fromExec("gedit --new %U %i");

    EXPECT_EQ(command.program, "gedit");
    EXPECT_EQ(command.arguments, Words{"--new"});
}

TEST(AppCommand, WrappersAreSeenThrough) {
    EXPECT_EQ(fromExec("env -u FOO A=1 B=2 nohup gamemoderun /opt/x/x").program, "/opt/x/x");
    EXPECT_EQ(fromExec("sh -c 'exec A=1 tool --x'").program, "tool");
}

std::string inShells(int count, std::string command) {
    for (int i = 0; i < count; ++i) {
        std::string quoted;
        for (const char c : command)
            quoted += c == '"' || c == '\\' ? std::string{'\\', c} : std::string{c};
        command = "sh -c \"";
        command += quoted;
        command += '"';
    }
    return command;
}

TEST(AppCommand, ShellsWithinShellsAreFollowedNotForEver) {
    EXPECT_EQ(fromExec(inShells(3, "tool")).program, "tool");
    EXPECT_EQ(fromExec(inShells(12, "tool")).program, "sh");
}

TEST(AppCommand, AFlatpakIsKnownByItsId) {
    const auto command = fromExec("/usr/bin/flatpak run --branch=stable --command=x "
                                  "--file-forwarding org.x.App --flag @@u %U @@");

    EXPECT_EQ(command.flatpakID, "org.x.App");
    EXPECT_EQ(command.arguments, Words{"--flag"});
}

TEST(AppCommand, AFlatpakCommandThatRunsNothingIsNone) {
    EXPECT_EQ(fromExec("flatpak run --branch=stable").flatpakID, "");
    EXPECT_EQ(fromExec("flatpak").flatpakID, "");
}

TEST(AppCommand, ASnapIsKnownByItsPathOrItsRunner) {
    EXPECT_EQ(fromExec("/snap/bin/libreoffice.writer %U").snap, "libreoffice");
    EXPECT_EQ(fromExec("/snap/bin/libreoffice.writer %U").snapApp, "writer");
    EXPECT_EQ(fromExec("/var/lib/snapd/snap/bin/foo").snap, "foo");
    EXPECT_EQ(fromExec("snap run foo.bar").snapApp, "bar");
    EXPECT_EQ(fromArguments({"/snap/foo/12/usr/bin/foo"}).snap, "foo");
    EXPECT_EQ(fromArguments({"/snap/core22/1/usr/bin/python3"}).snap, "");
}

TEST(AppCommand, AWindowsProgramIsKnownByItsFileName) {
    EXPECT_EQ(fromExec(R"(env WINEPREFIX=/p wine "C:\\Foo Bar\\Foo.EXE" /x)").windowsProgram,
              "foo.exe");
    EXPECT_EQ(fromArguments({R"(C:\windows\system32\notepad.exe)"}).windowsProgram, "notepad.exe");
    EXPECT_EQ(fromExec("wine start.exe /Unix /a.lnk").windowsProgram, "");
}

TEST(AppCommand, AnInterpretersScriptIsTheProgram) {
    EXPECT_EQ(fromArguments({"/usr/bin/python3.11", "-u", "/opt/a.py", "x"}).program, "/opt/a.py");
    EXPECT_EQ(fromArguments({"python3", "-m", "module"}).program, "module");
    EXPECT_EQ(fromArguments({"java", "-cp", "x.jar", "com.Main"}).program, "com.Main");
    EXPECT_EQ(fromArguments({"java", "-Xmx1g", "-jar", "y.jar"}).program, "y.jar");
    EXPECT_EQ(fromArguments({"/usr/bin/python3.11", "-u", "/opt/a.py", "x"}).interpreter, "python");
}

TEST(AppCommand, AnInterpreterAloneIsItself) {
    EXPECT_TRUE(xdg::AppCommands::isBareInterpreter(fromExec("/usr/bin/python3.11")));
    EXPECT_FALSE(xdg::AppCommands::isBareInterpreter(fromExec("python3 /opt/a.py")));
    EXPECT_FALSE(xdg::AppCommands::isBareInterpreter(fromExec("gedit")));
}

TEST(AppCommand, AnEmptyLineStartsNothing) {
    EXPECT_EQ(fromExec(""), xdg::AppCommand{});
    EXPECT_EQ(fromExec("%U"), xdg::AppCommand{});
    EXPECT_EQ(fromExec("env A=1"), xdg::AppCommand{});
    EXPECT_EQ(fromArguments({}), xdg::AppCommand{});
    EXPECT_EQ(fromArguments({""}).program, "");
}

TEST(AppCommand, ThousandsOfWrappersAreSeenThroughAtOnce) {
    std::string exec;
    for (int i = 0; i < 40'000; ++i)
        exec += i % 2 == 0 ? "A= " : "env ";

    const std::clock_t began = std::clock();
    const auto command = fromExec(exec + "program");

    EXPECT_EQ(command.program, "program");
    // In linear time this takes hundredths of a second even under sanitizers; in quadratic time,
    // half a minute.
    EXPECT_LT(std::clock() - began, 2 * CLOCKS_PER_SEC);
}

TEST(AppCommand, AnyWordsAreMetWithSomething) {
    const Words vocabulary{
        "env",      "-u",     "A=1",        "sh",        "-c",        "flatpak", "run",
        "snap",     "wine",   "x.exe",      "python3",   "-m",        "-jar",    "java",
        "/snap/a/", "--app=", "%U",         "--app-id=", "--app=h",   "'",       "\"",
        "\\",       "--name", "/snap/bin/", "",          "--app=http"};
    std::mt19937 random{11};
    for (int i = 0; i < 50'000; ++i) {
        std::string exec;
        Words arguments;
        for (std::size_t count = random() % 6; count > 0; --count) {
            arguments.push_back(vocabulary[random() % vocabulary.size()]);
            exec += arguments.back() + ' ';
        }
        EXPECT_LE(fromExec(exec).arguments.size(), 6U);
        EXPECT_LE(fromArguments(arguments).arguments.size(), 6U);
    }
}

}
}
