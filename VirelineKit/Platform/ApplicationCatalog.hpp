/// The applications installed on this computer and how they are named.
#pragma once

#include "Foundation/FileURL.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline {

class ApplicationCatalog {
public:
    /// The file manager, which leads every mirrored list.
    struct FileManager {
        std::string bundleID;
        std::string name;
    };

    virtual ~ApplicationCatalog() = default;

    /// Where the application with this identifier is installed.
    [[nodiscard]] virtual std::optional<FileURL>
    urlForBundleID(const std::string& bundleID) const = 0;

    /// The identifier of the bundle at `url`; nothing when it cannot be read or has none.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier(const FileURL& url) const = 0;

    /// The name a person would see for the file or folder at `url`; its last path component at
    /// worst.
    [[nodiscard]] virtual std::string displayName(const FileURL& url) const = 0;

    /// The path extension of an application bundle, without the dot.
    [[nodiscard]] virtual std::string bundleExtension() const { return "app"; }

    [[nodiscard]] virtual FileManager fileManager() const { return {"com.apple.finder", "Finder"}; }

    /// Well-known apps, the file manager first: what the docks show when there is nothing to
    /// mirror.
    [[nodiscard]] virtual std::vector<std::string> wellKnownBundleIDs() const {
        return {"com.apple.finder",      "com.apple.Safari",     "com.google.Chrome",
                "com.apple.mail",        "com.microsoft.VSCode", "com.apple.dt.Xcode",
                "net.whatsapp.WhatsApp", "com.spotify.client",   "com.apple.iCal",
                "com.apple.Notes"};
    }
};

}
