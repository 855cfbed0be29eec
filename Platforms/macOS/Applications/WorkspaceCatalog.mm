#include "Applications/WorkspaceCatalog.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

std::optional<FileURL> WorkspaceCatalog::urlForBundleID(const std::string& bundleID) const {
    return attemptOr(std::optional<FileURL>{}, "URLForApplicationWithBundleIdentifier", [&] {
        return toFileURL([NSWorkspace.sharedWorkspace
            URLForApplicationWithBundleIdentifier:toNSString(bundleID)]);
    });
}

std::optional<std::string> WorkspaceCatalog::bundleIdentifier(const FileURL& url) const {
    return attemptOr(std::optional<std::string>{}, "bundleWithURL", [&] {
        return toOptionalText([NSBundle bundleWithURL:toNSURL(url)].bundleIdentifier);
    });
}

std::string WorkspaceCatalog::displayName(const FileURL& url) const {
    return attemptOr(url.lastPathComponent(), "displayNameAtPath", [&] {
        return toText([NSFileManager.defaultManager displayNameAtPath:toNSString(url.path())]);
    });
}

std::vector<std::string> WorkspaceCatalog::wellKnownBundleIDs() const {
    return {"com.apple.finder",      "com.apple.Safari",     "com.google.Chrome",
            "com.apple.mail",        "com.microsoft.VSCode", "com.apple.dt.Xcode",
            "net.whatsapp.WhatsApp", "com.spotify.client",   "com.apple.iCal",
            "com.apple.Notes"};
}

}
