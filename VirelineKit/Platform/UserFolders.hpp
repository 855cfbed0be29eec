/// Where this user's well-known folders are.
#pragma once

#include "Foundation/FileURL.hpp"

#include <optional>
#include <vector>

namespace vireline {

class UserFolders {
public:
    virtual ~UserFolders() = default;

    [[nodiscard]] virtual FileURL home() const = 0;

    /// Where programs keep data for this user, the preferred folder first.
    [[nodiscard]] virtual std::vector<FileURL> applicationSupport() const = 0;

    /// Nothing when there is none.
    [[nodiscard]] virtual std::optional<FileURL> downloads() const = 0;

    /// Nothing when there is none; never created by asking. Its last path component is the name
    /// the log shows.
    [[nodiscard]] virtual std::optional<FileURL> trash() const = 0;
};

}
