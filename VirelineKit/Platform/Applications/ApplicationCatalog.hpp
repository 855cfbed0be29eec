/// The applications installed on this computer and how they are named.
#pragma once

#include "Foundation/FileURL.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline {

class ApplicationCatalog {
public:
    /// The file manager, which is put first in a mirrored list that lacks it.
    struct FileManager {
        std::string bundleID;
        std::string name;
    };

    /// Something that an application offers to do from outside, such as opening another window.
    struct Action {
        std::string id;
        /// In the user's language.
        std::string name;
        /// For `Icons::actionIcon`; empty if it has none.
        std::string icon;

        bool operator==(const Action&) const = default;
    };

    virtual ~ApplicationCatalog() = default;

    /// What the application at `url` offers, in its order. None where applications do not say.
    [[nodiscard]] virtual std::vector<Action> actions(const FileURL& /*url*/) const { return {}; }

    /// Where the application with this identifier is installed; nullopt if it is not.
    [[nodiscard]] virtual std::optional<FileURL>
    urlForBundleID(const std::string& bundleID) const = 0;

    /// The identifier of the bundle at `url`; nullopt if it cannot be read or has none.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier(const FileURL& url) const = 0;

    /// The name to show for the file or folder at `url`; the last path component if there is no
    /// other.
    [[nodiscard]] virtual std::string displayName(const FileURL& url) const = 0;

    /// The path extension of an application bundle, without the dot.
    [[nodiscard]] virtual std::string bundleExtension() const = 0;

    [[nodiscard]] virtual FileManager fileManager() const = 0;

    /// Well-known apps, the file manager first. The docks show those that are installed if there is
    /// nothing to mirror.
    [[nodiscard]] virtual std::vector<std::string> wellKnownBundleIDs() const = 0;
};

}
