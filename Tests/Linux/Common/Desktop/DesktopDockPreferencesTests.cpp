#include "Desktop/DesktopNames.hpp"
#include "Desktop/Pinned/DesktopDockPreferences.hpp"
#include "Files/PosixFileSystem.hpp"
#include "Linux/EventLoop.hpp"
#include "Support/FakeApplications.hpp"
#include "Support/FileOperations.hpp"
#include "Support/TemporaryFolder.hpp"

#define G_SETTINGS_ENABLE_BACKEND
#include <gio/gsettingsbackend.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vireline::xdg {
namespace {

using test::deliverPendingEvents;
using test::makeFolder;
using test::overwrite;
using test::removeAll;
using test::replaceByRename;

constexpr const char* plankPath = "/net/launchpad/plank/docks/dock1/";

constexpr std::string_view schemas = R"(<schemalist>
  <schema id="org.gnome.shell" path="/org/gnome/shell/">
    <key name="favorite-apps" type="as"><default>[]</default></key>
  </schema>
  <schema id="net.launchpad.plank.dock.settings">
    <key name="dock-items" type="as"><default>[]</default></key>
  </schema>
</schemalist>)";

constexpr std::string_view schemasOfOtherShape = R"(<schemalist>
  <schema id="org.gnome.shell" path="/org/gnome/shell/">
    <key name="favorite-apps" type="s"><default>''</default></key>
  </schema>
  <schema id="net.launchpad.plank.dock.settings">
    <key name="other" type="as"><default>[]</default></key>
  </schema>
</schemalist>)";

using SchemaSource = GLibHandle<GSettingsSchemaSource, g_settings_schema_source_unref>;
using Schema = GLibHandle<GSettingsSchema, g_settings_schema_unref>;

/// Desktop settings in memory, with schemas defined by the test.
class PrivateSettings {
public:
    PrivateSettings(const FileURL& folder, std::string_view described) {
        makeFolder(folder);
        overwrite(folder.appending("test.gschema.xml"), described);
        const std::string command = "glib-compile-schemas '" + folder.path() + "'";
        if (std::system(command.c_str()) != 0)
            return;
        schemas_.reset(g_settings_schema_source_new_from_directory(folder.path().c_str(), nullptr,
                                                                   TRUE, nullptr));
    }

    [[nodiscard]] bool areThere() const { return schemas_ != nullptr; }
    [[nodiscard]] SettingsStorage storage() const { return {schemas_.get(), backend_.get()}; }

    void set(const char* schema, const char* path, const char* key,
             std::vector<const char*> values) const {
        values.push_back(nullptr);
        const Schema found{g_settings_schema_source_lookup(schemas_.get(), schema, TRUE)};
        const GObjectHandle<GSettings> settings{
            g_settings_new_full(found.get(), backend_.get(), path)};
        ASSERT_TRUE(g_settings_set_strv(settings.get(), key, values.data()));
    }

private:
    SchemaSource schemas_;
    GObjectHandle<GSettingsBackend> backend_{g_memory_settings_backend_new()};
};

class DesktopDockPreferencesTest : public testing::Test {
protected:
    DesktopDockPreferencesTest() {
        test::testApplication();
        for (const char* name : {"files", "mail", "web", "music"})
            catalog.installed.push_back({name, std::string{"The "} + name, entry(name)});
        catalog.wellKnown = {"files", "absent", "web"};
    }

    static FileURL entry(const std::string& name) {
        return FileURL::fromPath("/usr/share/applications/" + name + ".desktop");
    }

    void start(const std::string& currentDesktop = "", std::string_view described = schemas) {
        settings = std::make_unique<PrivateSettings>(home.appending("schemas"), described);
        if (!settings->areThere())
            GTEST_SKIP() << "glib-compile-schemas is not installed";
        preferences = std::make_unique<DesktopDockPreferences>(
            DesktopDockPreferences::Surroundings{.home = home,
                                                 .configHome = home.appending(".config"),
                                                 .desktopNames =
                                                     DesktopNames::parse(currentDesktop),
                                                 .settings = settings->storage()},
            fileSystem, catalog);
        changes = preferences->observeChanges([this] { ++announced; });
    }

    void setFavorites(std::vector<const char*> names) const {
        settings->set("org.gnome.shell", nullptr, "favorite-apps", std::move(names));
    }

    void setPlankOrder(std::vector<const char*> names) const {
        settings->set("net.launchpad.plank.dock.settings", plankPath, "dock-items",
                      std::move(names));
    }

    /// Writes a launcher file as Plank does.
    void addLauncher(const std::string& name, const std::string& url) const {
        makeFolder(launchers);
        replaceByRename(launchers.appending(name + ".dockitem"),
                        "[PlankDockItemPreferences]\n#The uri for this item.\nLauncher=" + url +
                            "\n");
    }

    static std::string plist(std::string_view apps) {
        return "<plist version=\"1.0\"><dict><key>persistent-apps</key>" + std::string{apps} +
               "</dict></plist>";
    }

    static std::string plistWith(const std::string& url) {
        return plist("<array><dict><key>tile-data</key><dict><key>file-data</key><dict>"
                     "<key>_CFURLString</key><string>" +
                     url + "</string></dict></dict></dict></array>");
    }

    /// The URLs of all tiles, or just "nothing" if there is no list at all.
    std::vector<std::string> urls() {
        const auto apps = preferences->persistentApps();
        if (!apps || apps->array() == nullptr)
            return {"nothing"};
        std::vector<std::string> found;
        for (const PropertyList& tile : *apps->array())
            found.push_back(
                *tile.find("tile-data")->find("file-data")->find("_CFURLString")->string());
        return found;
    }

    static std::vector<std::string> entryURLs(const std::vector<std::string>& names) {
        std::vector<std::string> found;
        found.reserve(names.size());
        for (const std::string& name : names)
            found.push_back(entry(name).absoluteString());
        return found;
    }

    /// The number of announcements since the last call.
    int newAnnouncements() {
        deliverPendingEvents();
        return std::exchange(announced, 0);
    }

    test::TemporaryFolder temporary;
    FileURL home = test::urlOf(temporary.path());
    FileURL plistFile = home.appending("Library/Preferences/com.apple.dock.plist");
    FileURL launchers = home.appending(".config/plank/dock1/launchers");
    PosixFileSystem fileSystem;
    test::FakeApplicationCatalog catalog;
    std::unique_ptr<PrivateSettings> settings;
    std::unique_ptr<DesktopDockPreferences> preferences;
    int announced = 0;
    Subscription changes;
};

TEST_F(DesktopDockPreferencesTest, OffersTheWellKnownAppsThatAreInstalledWhenThereIsNoList) {
    start();

    const PropertyList apps = preferences->persistentApps().value_or(PropertyList{});

    EXPECT_EQ(urls(), entryURLs({"files", "web"}));
    ASSERT_NE(apps.array(), nullptr);
    const PropertyList& first = apps.array()->front();
    EXPECT_EQ(*first.find("tile-data")->find("file-label")->string(), "The files");
    EXPECT_EQ(*first.find("tile-data")->find("bundle-identifier")->string(), "files");
}

TEST_F(DesktopDockPreferencesTest, PrefersThePropertyListToAllOthers) {
    makeFolder(plistFile.parent());
    overwrite(plistFile, plistWith("file:///from/plist"));
    start("GNOME");
    setFavorites({"mail.desktop"});
    addLauncher("web", entry("web").absoluteString());

    EXPECT_EQ(urls(), std::vector<std::string>{"file:///from/plist"});
}

// Behaviour: dock-preferences-reader-4
TEST_F(DesktopDockPreferencesTest, HasNothingWhenThePropertyListIsDamagedAndTriesNoOtherSource) {
    makeFolder(plistFile.parent());
    overwrite(plistFile, "no property list");
    start("GNOME");
    setFavorites({"mail.desktop"});
    EXPECT_EQ(urls(), std::vector<std::string>{"nothing"});

    overwrite(plistFile, "<plist version=\"1.0\"><array/></plist>");
    EXPECT_EQ(urls(), std::vector<std::string>{"nothing"});
    overwrite(plistFile, "<plist version=\"1.0\"><dict/></plist>");
    EXPECT_EQ(urls(), std::vector<std::string>{"nothing"});
    overwrite(plistFile, plist("<array/>"));
    EXPECT_EQ(urls(), std::vector<std::string>{});
}

TEST_F(DesktopDockPreferencesTest, AnnouncesEverythingThatHappensToThePropertyList) {
    start();
    makeFolder(plistFile.parent());
    EXPECT_EQ(newAnnouncements(), 0);

    replaceByRename(plistFile, plistWith("file:///one"));
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), std::vector<std::string>{"file:///one"});

    overwrite(plistFile, plistWith("file:///two"));
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), std::vector<std::string>{"file:///two"});

    replaceByRename(plistFile, plistWith("file:///three"));
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), std::vector<std::string>{"file:///three"});

    removeAll(plistFile);
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"files", "web"}));

    replaceByRename(plistFile, plistWith("file:///four"));
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), std::vector<std::string>{"file:///four"});
}

TEST_F(DesktopDockPreferencesTest, TakesGnomesFavoritesInTheirOrder) {
    start("ubuntu:GNOME");
    setFavorites({"web.desktop", "uninstalled.desktop", "mail.desktop", "files"});

    EXPECT_EQ(urls(), entryURLs({"web", "mail", "files"}));
}

TEST_F(DesktopDockPreferencesTest, AnnouncesAChangeOfGnomesFavorites) {
    start("GNOME");
    newAnnouncements();

    setFavorites({"mail.desktop"});

    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"mail"}));
}

TEST_F(DesktopDockPreferencesTest, LeavesGnomesFavoritesAloneOnOtherDesktops) {
    for (const char* desktop : {"", "KDE", "XFCE", "GNOMELIKE", "X-GNOME"}) {
        start(desktop);
        setFavorites({"mail.desktop"});
        EXPECT_EQ(urls(), entryURLs({"files", "web"})) << desktop;
    }
}

TEST_F(DesktopDockPreferencesTest, DoesWithoutSchemasThatAreMissingOrOfAnotherShape) {
    addLauncher("web", entry("web").absoluteString());
    start("GNOME", "<schemalist></schemalist>");
    EXPECT_EQ(urls(), entryURLs({"files", "web"}));

    start("GNOME", schemasOfOtherShape);
    EXPECT_EQ(urls(), entryURLs({"files", "web"}));
}

TEST_F(DesktopDockPreferencesTest, TakesPlanksLaunchersInTheOrderOfItsKeyAndThenTheRest) {
    addLauncher("web", entry("web").absoluteString());
    addLauncher("mail", entry("mail").absoluteString());
    addLauncher("zebra", "file:///zebra.desktop");
    addLauncher("apple", "file:///apple.desktop");
    start();
    setPlankOrder({"web.dockitem", "../../escape.dockitem", "missing.dockitem", "mail.dockitem"});

    EXPECT_EQ(urls(), (std::vector<std::string>{entry("web").absoluteString(),
                                                entry("mail").absoluteString(),
                                                "file:///apple.desktop", "file:///zebra.desktop"}));
}

TEST_F(DesktopDockPreferencesTest, IgnoresLaunchersThatAreDamaged) {
    addLauncher("mail", entry("mail").absoluteString());
    overwrite(launchers.appending("empty.dockitem"), "");
    overwrite(launchers.appending("noise.dockitem"), std::string(200, '\xFF'));
    overwrite(launchers.appending("other.dockitem"), "[Other]\nKey=value\n");
    overwrite(launchers.appending("long.dockitem"), std::string(1 << 20, '#'));
    overwrite(launchers.appending("note.txt"), "[X]\nLauncher=file:///note\n");
    makeFolder(launchers.appending("folder.dockitem"));
    start();

    EXPECT_EQ(urls(), entryURLs({"mail"}));
}

TEST_F(DesktopDockPreferencesTest, AnnouncesThatPlankCameIntoUseAndWhatItChangesThen) {
    start();
    makeFolder(launchers);
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), std::vector<std::string>{});

    addLauncher("mail", entry("mail").absoluteString());
    addLauncher("web", entry("web").absoluteString());
    EXPECT_GE(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"mail", "web"}));

    setPlankOrder({"web.dockitem", "mail.dockitem"});
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"web", "mail"}));

    removeAll(home.appending(".config/plank"));
    EXPECT_GE(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"files", "web"}));
}

TEST_F(DesktopDockPreferencesTest, SaysNothingAboutListsThatAreNotInUse) {
    makeFolder(plistFile.parent());
    overwrite(plistFile, plistWith("file:///from/plist"));
    addLauncher("mail", entry("mail").absoluteString());
    start("GNOME");

    setFavorites({"mail.desktop"});
    setPlankOrder({"mail.dockitem"});
    addLauncher("web", entry("web").absoluteString());

    EXPECT_EQ(newAnnouncements(), 0);
}

TEST_F(DesktopDockPreferencesTest, SwitchesToTheNextListWhenTheOneInUseIsGone) {
    makeFolder(plistFile.parent());
    overwrite(plistFile, plistWith("file:///from/plist"));
    start("GNOME");
    setFavorites({"mail.desktop"});
    removeAll(plistFile);
    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"mail"}));

    setFavorites({"web.desktop"});

    EXPECT_EQ(newAnnouncements(), 1);
    EXPECT_EQ(urls(), entryURLs({"web"}));
}

TEST_F(DesktopDockPreferencesTest, AnnouncesNothingAfterTheSubscriptionEnds) {
    start();
    changes.reset();

    makeFolder(plistFile.parent());
    replaceByRename(plistFile, plistWith("file:///one"));

    EXPECT_EQ(newAnnouncements(), 0);
}

}
}
