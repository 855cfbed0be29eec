#include "Support/FakeApplications.hpp"

#include <algorithm>
#include <iterator>

namespace vireline::test {

std::optional<FileURL> FakeApplicationCatalog::urlForBundleID(const std::string& bundleID) const {
    const auto app = std::ranges::find(installed, bundleID, &AppRef::bundleID);
    return app == installed.end() ? std::nullopt : std::optional{app->url};
}

std::optional<std::string> FakeApplicationCatalog::bundleIdentifier(const FileURL& url) const {
    const auto app = std::ranges::find(installed, url, &AppRef::url);
    return app == installed.end() ? std::nullopt : std::optional{app->bundleID};
}

std::string FakeApplicationCatalog::displayName(const FileURL& url) const {
    const auto app = std::ranges::find(installed, url, &AppRef::url);
    return app == installed.end() ? url.lastPathComponent() : app->name;
}

std::optional<PropertyList> FakeDockPreferences::persistentApps() {
    ++reads;
    return tiles;
}

Subscription FakeDockPreferences::observeChanges(std::function<void()> handler) {
    return changes_.add(std::move(handler));
}

Result<PropertyList> FakePropertyListDecoder::decode(std::span<const std::byte> bytes) const {
    std::string text(bytes.size(), '\0');
    std::ranges::transform(bytes, text.begin(),
                           [](std::byte byte) { return static_cast<char>(byte); });
    const auto found = known.find(text);
    if (found == known.end())
        return std::unexpected{damage};
    return found->second;
}

std::vector<RunningApplication>
FakeRunningApplications::instances(const std::string& bundleID) const {
    std::vector<RunningApplication> found;
    std::ranges::copy_if(apps, std::back_inserter(found),
                         [&](const auto& app) { return app.bundleID == bundleID; });
    return found;
}

Subscription FakeRunningApplications::observeWillLaunch(Handler handler) {
    return willLaunch_.add(std::move(handler));
}

Subscription FakeRunningApplications::observeDidLaunch(Handler handler) {
    return didLaunch_.add(std::move(handler));
}

Subscription FakeRunningApplications::observeDidTerminate(Handler handler) {
    return didTerminate_.add(std::move(handler));
}

void FakeRunningApplications::launch(const RunningApplication& app) {
    announceWillLaunch(app);
    apps.push_back(app);
    announceDidLaunch(app);
}

void FakeRunningApplications::quit(const std::string& bundleID) {
    for (const RunningApplication& instance : instances(bundleID)) {
        std::erase(apps, instance);
        announceDidTerminate(instance);
    }
}

void FakeRunningApplications::bringToFront(const std::string& bundleID) {
    for (RunningApplication& app : apps)
        app.isActive = app.bundleID == bundleID;
}

ImageHandle FakeIcons::iconForFile(const std::string& path, const std::string& key, Size size) {
    fileRequests.push_back({path, key, size});
    return std::make_shared<FakeImage>(path, size);
}

ImageHandle FakeIcons::namedImage(const std::string& name, Size size) {
    imageRequests.push_back(name);
    return knownImages.contains(name) ? std::make_shared<FakeImage>(name, size) : nullptr;
}

ImageHandle FakeIcons::symbol(const std::string& name, const std::string& accessibilityDescription,
                              Size size) {
    symbolRequests.push_back({name, accessibilityDescription, size});
    return knownSymbols.contains(name) ? std::make_shared<FakeImage>(name, size) : nullptr;
}

int FakeApplication::run(std::function<void()> onFinishedLaunching) {
    onFinishedLaunching();
    if (whileRunning)
        whileRunning();
    return exitCode;
}

Subscription FakeApplication::observeSecondStart(std::function<void()> handler) {
    return secondStarts_.add(std::move(handler));
}

}
