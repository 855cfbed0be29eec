#include "Support/FakePlatform.hpp"

namespace vireline::test {

Platform FakePlatform::ports() {
    return Platform{
        .application = application,
        .runLoop = runLoop,
        .fileSystem = fileSystem,
        .fileEvents = fileEvents,
        .userFolders = userFolders,
        .trash = trash,
        .dockPreferences = dockPreferences,
        .catalog = catalog,
        .runningApplications = running,
        .workspace = workspace,
        .icons = icons,
        .screens = screens,
        .panelWindows = panelWindows,
        .pointerSettings = pointerSettings,
        .motionSettings = motionSettings,
        .accessibility = accessibility,
        .pointerTaps = pointerTaps,
        .statusBar = statusBar,
        .loginItemService = loginItem,
        .programWindows = programWindows,
        .words = words,
        .launcherAnnouncements = &announcements,
    };
}

AppRef FakePlatform::install(const std::string& bundleID, const std::string& name) {
    const AppRef app{bundleID, name,
                     FileURL::fromPath("/Applications/" + name + "." + catalog.appExtension)};
    fileSystem.putFolder(app.url);
    catalog.installed.push_back(app);
    return app;
}

void FakePlatform::pin(std::initializer_list<AppRef> apps) {
    PropertyList::Array tiles;
    for (const AppRef& app : apps)
        tiles.push_back(dockTile(app.url.absoluteString(), app.name, app.bundleID));
    dockPreferences.tiles = PropertyList{std::move(tiles)};
}

RunningApplication FakePlatform::instanceOf(const AppRef& app, std::int32_t processIdentifier) {
    return RunningApplication{
        .bundleID = app.bundleID,
        .bundleURL = app.url,
        .localizedName = app.name,
        .activationPolicy = ActivationPolicy::regular,
        .processIdentifier = processIdentifier,
        .isActive = false,
    };
}

PropertyList dockTile(const std::string& urlText, const std::optional<std::string>& label,
                      const std::optional<std::string>& bundleID) {
    PropertyList::Dictionary data{{"file-data", PropertyList{PropertyList::Dictionary{
                                                    {"_CFURLString", PropertyList{urlText}}}}}};
    if (label)
        data.emplace("file-label", PropertyList{*label});
    if (bundleID)
        data.emplace("bundle-identifier", PropertyList{*bundleID});
    return PropertyList{PropertyList::Dictionary{{"tile-data", PropertyList{std::move(data)}}}};
}

}
