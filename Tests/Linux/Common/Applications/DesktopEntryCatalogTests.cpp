#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/Entries/DesktopEntryFiles.hpp"
#include "Linux/Environment.hpp"
#include "Support/FakeRunLoop.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace vireline {
namespace {

namespace fs = std::filesystem;
using IDs = std::vector<std::string>;
using xdg::DesktopEntryCatalog;

std::string entryText(const std::string& name, const std::string& exec = "/bin/sh") {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + "\n";
}

/// The applications folders of a user and the system, and a catalogue of both.
struct Installation {
    Installation() {
        fs::create_directories(user);
        fs::create_directories(system);
    }

    static void write(const fs::path& path, const std::string& text) {
        fs::create_directories(path.parent_path());
        std::ofstream{path} << text;
    }

    [[nodiscard]] IDs ids() const {
        IDs found;
        for (const auto& entry : catalog.index().entries())
            found.push_back(entry.entry.id);
        return found;
    }

    test::LoggedLines log;
    test::TemporaryFolder folder;
    fs::path user = folder.path() / "user/applications";
    fs::path system = folder.path() / "system/applications";
    test::FakeRunLoop loop;
    DesktopEntryCatalog catalog{
        loop, {FileURL::fromPath(user.string()), FileURL::fromPath(system.string())}};
};

TEST(DesktopEntryCatalog, FindsEntriesInFoldersBelow) {
    Installation installation;
    Installation::write(installation.system / "a.desktop", entryText("A"));
    Installation::write(installation.system / "wine/Programs/b.desktop", entryText("B"));
    Installation::write(installation.system / "not-an-entry.txt", entryText("C"));

    EXPECT_EQ(installation.ids(), (IDs{"a", "wine-Programs-b"}));
}

TEST(DesktopEntryCatalog, TheUsersEntryReplacesTheSystems) {
    Installation installation;
    Installation::write(installation.system / "a.desktop", entryText("System"));
    Installation::write(installation.user / "a.desktop", entryText("User"));

    EXPECT_EQ(installation.catalog.index().find("a")->entry.name, "User");
    EXPECT_EQ(installation.catalog.urlForBundleID("a"),
              FileURL::fromPath((installation.user / "a.desktop").string()));
}

TEST(DesktopEntryCatalog, AHiddenEntryMakesTheOthersOfItsIdNotInstalled) {
    Installation installation;
    Installation::write(installation.system / "a.desktop", entryText("System"));
    Installation::write(installation.user / "a.desktop", "[Desktop Entry]\nHidden=true\n");

    EXPECT_TRUE(installation.ids().empty());
    EXPECT_FALSE(installation.catalog.urlForBundleID("a"));
    EXPECT_FALSE(installation.catalog.bundleIdentifier(
        FileURL::fromPath((installation.user / "a.desktop").string())));
}

TEST(DesktopEntryCatalog, AMalformedEntryHidesNothing) {
    Installation installation;
    Installation::write(installation.system / "a.desktop", entryText("System"));
    Installation::write(installation.user / "a.desktop", "rubbish");

    EXPECT_EQ(installation.ids(), IDs{"a"});
    const auto path = (installation.user / "a.desktop").string();
    EXPECT_EQ(installation.log.count("ignored desktop entry: " + path), 1);
}

TEST(DesktopEntryCatalog, AMalformedEntryIsLoggedOnceHoweverOftenItIsMet) {
    Installation installation;
    const auto path = (installation.system / "a.desktop").string();
    Installation::write(path, "rubbish");
    const auto url = FileURL::fromPath(path);

    EXPECT_FALSE(installation.catalog.entryAt(url));
    EXPECT_TRUE(installation.ids().empty());
    EXPECT_FALSE(installation.catalog.bundleIdentifier(url));

    EXPECT_EQ(installation.log.count("ignored desktop entry: " + path), 1);
}

TEST(DesktopEntryCatalog, TheWellKnownAppsAreThoseThatAUserWouldStartFromAMenu) {
    Installation installation;
    const auto install = [&](const std::string& id, const std::string& lines) {
        Installation::write(installation.system / (id + ".desktop"), entryText(id) + lines);
    };
    install("xterm", "Icon=there\n");
    install("firefox", "Icon=there\nNoDisplay=true\n");
    install("chromium", "Icon=there\n");
    install("gimp", "Icon=nowhere\n");
    install("galculator", "");
    install("pluma", "Icon=there\nTerminal=true\n");
    install("pcmanfm", "Icon=there\n");
    install("org.gnome.Nautilus", "Icon=nowhere\n");
    installation.catalog.hasIcon = [](const std::string& icon) { return icon == "there"; };

    auto ids = installation.catalog.wellKnownBundleIDs();

    for (const char* const unfit : {"firefox", "gimp", "galculator", "pluma", "org.gnome.Nautilus"})
        EXPECT_EQ(std::ranges::count(ids, unfit), 0) << unfit;
    ids.resize(3);
    EXPECT_EQ(ids, (IDs{"pcmanfm", "chromium", "xterm"}));
    EXPECT_EQ(installation.catalog.fileManager().bundleID, "pcmanfm");
}

TEST(DesktopEntryCatalog, AnEntryWhoseProgramIsMissingIsNotInstalled) {
    Installation installation;
    Installation::write(installation.system / "gone.desktop", entryText("A", "/no/such/program"));
    Installation::write(installation.system / "tried.desktop",
                        entryText("A") + "TryExec=/no/such/program\n");
    Installation::write(installation.system / "there.desktop", entryText("A", "env A=1 sh"));

    EXPECT_FALSE(installation.catalog.urlForBundleID("gone"));
    EXPECT_FALSE(installation.catalog.urlForBundleID("tried"));
    EXPECT_TRUE(installation.catalog.urlForBundleID("there"));
    EXPECT_FALSE(installation.catalog.urlForBundleID("never-heard-of"));
}

TEST(DesktopEntryCatalog, NamesAreInTheUsersLanguage) {
    const test::EnvironmentVariable language{"LANGUAGE", "de"};
    Installation installation;
    const auto path = installation.system / "a.desktop";
    Installation::write(path, entryText("Files") + "Name[de]=Dateien\nName[fr]=Fichiers\n");

    EXPECT_EQ(installation.catalog.displayName(FileURL::fromPath(path.string())), "Dateien");
}

TEST(DesktopEntryCatalog, OtherFilesAreNamedAfterThemselves) {
    const Installation installation;

    EXPECT_EQ(installation.catalog.displayName(FileURL::fromPath("/no/such/notes.txt")),
              "notes.txt");
    EXPECT_EQ(installation.catalog.displayName(FileURL::fromPath("/no/such/app.desktop")),
              "app.desktop");
}

TEST(DesktopEntryCatalog, AnEntryAnywhereHasAnIdentifier) {
    Installation installation;
    const auto onTheDesktop = installation.folder.path() / "Desktop/My App.desktop";
    const auto below = installation.system / "sub/x.desktop";
    Installation::write(onTheDesktop, entryText("Mine"));
    Installation::write(below, entryText("X"));

    const auto& catalog = installation.catalog;
    EXPECT_EQ(catalog.bundleIdentifier(FileURL::fromPath(onTheDesktop.string())), "My App");
    EXPECT_EQ(catalog.bundleIdentifier(FileURL::fromPath(below.string())), "sub-x");
    EXPECT_FALSE(catalog.bundleIdentifier(FileURL::fromPath("/etc/passwd")));
    EXPECT_FALSE(catalog.bundleIdentifier(FileURL::fromPath("/no/such.desktop")));
}

TEST(DesktopEntryCatalog, FoldersThatContainThemselvesEnd) {
    Installation installation;
    Installation::write(installation.system / "sub/a.desktop", entryText("A"));
    fs::create_directory_symlink(installation.system, installation.system / "sub/loop");
    fs::create_directory_symlink("loop2", installation.system / "loop2");

    EXPECT_EQ(installation.ids(), IDs{"sub-a"});
}

TEST(DesktopEntryCatalog, WhatIsNotARegularFileIsIgnored) {
    Installation installation;
    fs::create_directory(installation.system / "folder.desktop");
    fs::create_symlink("/dev/zero", installation.system / "endless.desktop");
    fs::create_symlink("nowhere", installation.system / "dangling.desktop");
    fs::create_symlink("self.desktop", installation.system / "self.desktop");
    ASSERT_EQ(mkfifo((installation.system / "pipe.desktop").c_str(), 0600), 0);
    Installation::write(installation.system / "good.desktop", entryText("Good"));

    EXPECT_EQ(installation.ids(), IDs{"good"});
}

TEST(DesktopEntryCatalog, AFileOfTenMegabytesIsIgnored) {
    Installation installation;
    const std::string half(5'000'000, '#');
    Installation::write(installation.system / "big.desktop", entryText("Big") + half + half);

    EXPECT_TRUE(installation.ids().empty());
    const auto path = (installation.system / "big.desktop").string();
    EXPECT_EQ(installation.log.count("ignored desktop entry: " + path), 1);
}

TEST(DesktopEntryCatalog, FileNamesThatNoIdentifierCouldHaveAreIgnored) {
    Installation installation;
    Installation::write(installation.system / "tab\tbed.desktop", entryText("A"));
    Installation::write(installation.system / "latin\xe4.desktop", entryText("A"));
    Installation::write(installation.system / ".desktop", entryText("A"));

    EXPECT_TRUE(installation.ids().empty());
}

TEST(DesktopEntryCatalog, AnEntryThatIsItsOwnIconIsAnEntryLikeOthers) {
    Installation installation;
    const auto path = (installation.system / "a.desktop").string();
    Installation::write(path, entryText("A") + "Icon=" + path + "\n");

    const auto entry = installation.catalog.entryAt(FileURL::fromPath(path));
    EXPECT_EQ(entry.value_or(xdg::DesktopEntry{}).icon, path);
}

TEST(DesktopEntryCatalog, WithoutFoldersIsEmpty) {
    test::FakeRunLoop loop;
    const DesktopEntryCatalog catalog{loop, {FileURL::fromPath("/no/such")}};

    EXPECT_TRUE(catalog.index().entries().empty());
    EXPECT_EQ(catalog.fileManager().bundleID, "");
    EXPECT_EQ(catalog.wellKnownBundleIDs().size(), 10U);
}

TEST(DesktopEntryCatalog, ItsApplicationsEndInDesktop) {
    const Installation installation;

    EXPECT_EQ(installation.catalog.bundleExtension(), "desktop");
}

}
}
