#include "Applications/GioWorkspace.hpp"

#include "Desktop/DesktopNames.hpp"
#include "Foundation/DevLog.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

namespace vireline::xdg {
namespace {

std::string described(const PlatformError& error) {
    return PlainText::clean(error.description, 1024);
}

/// Launchers such as terminals leak the ID to everything they start, and some entries opt out
/// (StartupNotify=false).
bool wantsStartupID(const DesktopEntry& entry) {
    return !entry.terminal && !entry.isTerminalEmulator && entry.startupNotify.value_or(true);
}

bool exists(const FileURL& url) {
    std::error_code error;
    return std::filesystem::exists(url.path(), error);
}

}

GioWorkspace::GioWorkspace(StartupNotices& notices, const DesktopEntryCatalog& catalog,
                           DesktopRunningApplications& running, const UserFolders& folders,
                           const PointerSettings& pointerSettings)
    : notices_(notices)
    , catalog_(catalog)
    , running_(running)
    , folders_(folders)
    , pointerSettings_(pointerSettings) {}

void GioWorkspace::openApplication(const std::string& bundleID, const FileURL& url) {
    if (running_.bringForward(bundleID) || isLaunching(bundleID))
        return;
    if (const auto entry = catalog_.entryAt(url))
        launch(bundleID, *entry);
    else
        DevLog::write("launch failed " + bundleID + ": no desktop entry");
}

/// The second click of a double click is handled slightly later than it was made, so it gets some
/// extra time.
bool GioWorkspace::isLaunching(const std::string& bundleID) const {
    constexpr double handlingSeconds = 0.6;
    return running_.isLaunching(bundleID, pointerSettings_.doubleClickInterval() + handlingSeconds);
}

void GioWorkspace::open(const FileURL& url) {
    std::vector<std::string> uris{url.absoluteString()};
    if (url == folders_.trash())
        uris = {"trash:///", url.appending("files").absoluteString()};
    launcher_.open(
        std::move(uris), fileManagerPath(), lifetime_.guard([url](const Result<void>& outcome) {
            if (!outcome)
                DevLog::write("open failed " + PlainText::clean(url.lastPathComponent()) + ": " +
                              described(outcome.error()));
        }));
}

void GioWorkspace::reveal(const std::vector<FileURL>& urls) {
    std::vector<FileURL> files;
    std::ranges::copy_if(urls, std::back_inserter(files), exists);
    if (files.empty()) {
        DevLog::write("reveal failed: no such file");
        return;
    }
    std::vector<std::string> uris;
    std::ranges::transform(files, std::back_inserter(uris), &FileURL::absoluteString);
    fileManager_.showItems(
        std::move(uris), lifetime_.guard([this, files](const Result<void>& outcome) {
            if (outcome)
                return;
            DevLog::write("reveal failed, opening the folder: " + described(outcome.error()));
            openFolders(files);
        }));
}

/// A file manager may be installed even if the desktop does not say which program opens folders.
std::string GioWorkspace::fileManagerPath() const {
    const auto* found = catalog_.index().find(catalog_.fileManager().bundleID);
    return found == nullptr ? std::string{} : found->entry.path;
}

void GioWorkspace::launchAgain(const std::string& bundleID, const FileURL& url) {
    perform(bundleID, url, {});
}

void GioWorkspace::perform(const std::string& bundleID, const FileURL& url,
                           const std::string& actionID) {
    if (const auto entry = catalog_.entryAt(url))
        launch(bundleID, *entry, actionID);
    else
        DevLog::write("launch failed " + bundleID + ": no desktop entry");
}

void GioWorkspace::launch(const std::string& bundleID, const DesktopEntry& entry,
                          const std::string& actionID) {
    const std::string startupID = notices_.nextStartupID();
    const bool handsOn = wantsStartupID(entry);
    const bool tellsOthers = handsOn && entry.startupNotify.value_or(false);
    // An app that runs only opens another window, which does not end a launch.
    if (running_.instances(bundleID).empty())
        running_.launchBegan(startupID, entry, bundleID, tellsOthers);
    const auto failed = lifetime_.guard([this, bundleID, startupID](const PlatformError& error) {
        if (running_.launchFailed(startupID))
            DevLog::write("launch failed " + bundleID + ": " + described(error));
    });
    const auto start = [this, entry, actionID, failed](const LaunchPass& pass) {
        if (actionID.empty())
            launcher_.launch(entry, pass, failed);
        else
            launcher_.perform(entry, actionID, pass, failed);
    };
    if (handsOn)
        notices_.makePass(startupID, lifetime_.guard(start));
    else
        start({});
}

void GioWorkspace::openFolders(const std::vector<FileURL>& files) {
    std::vector<FileURL> folders;
    for (const FileURL& file : files) {
        if (const FileURL folder = file.parent();
            std::ranges::find(folders, folder) == folders.end())
            folders.push_back(folder);
    }
    for (const FileURL& folder : folders)
        open(folder);
}

}
