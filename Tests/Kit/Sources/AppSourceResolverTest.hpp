/// A resolver, the apps of a fake platform, and what it announces.
#pragma once

#include "Sources/AppSourceResolver.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/Printing.hpp"
#include "Support/Recorder.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline::test {

inline StoredApp stored(const AppRef& app) {
    return {app.bundleID, app.name, app.url.path()};
}

inline std::vector<StoredApp> stored(const std::vector<AppRef>& apps) {
    std::vector<StoredApp> list;
    list.reserve(apps.size());
    for (const AppRef& app : apps)
        list.push_back(stored(app));
    return list;
}

/// A resolver whose owner calls `emit` after every change of the settings.
struct AppSourceResolverTest : testing::Test {
    void owned() {
        store.onChange = [this] { resolver.emit(); };
    }

    void startMirroring() {
        platform.pin({finder, mail, notes, music, maps});
        owned();
        resolver.start();
        log.clear();
        lists.values.clear();
    }

    void startManual(const std::vector<AppRef>& apps) {
        setManual(stored(apps));
        platform.pin({finder, mail});
        owned();
        resolver.start();
        log.clear();
        lists.values.clear();
    }

    void setManual(std::vector<StoredApp> apps, SourceMode mode = SourceMode::manual) {
        Settings settings = store.settings();
        settings.manualApps = std::move(apps);
        settings.sourceMode = mode;
        store.setSettings(settings);
    }

    [[nodiscard]] const std::vector<StoredApp>& manualApps() const {
        return store.settings().manualApps;
    }
    [[nodiscard]] SourceMode mode() const { return store.settings().sourceMode; }

    LoggedLines log;
    FakePlatform platform;
    AppRef finder = platform.install("com.apple.finder", "Finder");
    AppRef mail = platform.install("com.apple.mail", "Mail");
    AppRef notes = platform.install("com.apple.Notes", "Notes");
    AppRef music = platform.install("com.apple.Music", "Music");
    AppRef maps = platform.install("com.apple.Maps", "Maps");
    AppRef chess = platform.install("com.apple.Chess", "Chess");
    PreferencesStore store{platform.fileSystem, platform.userFolders};
    AppSourceResolver resolver{store, platform.ports()};
    Recorder<std::vector<AppRef>> lists{resolver.onChange};
};

}
