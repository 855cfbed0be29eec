/// The user's well-known folders.
#pragma once

#include "Foundation/FileURL.hpp"

#include <optional>
#include <vector>

namespace vireline {

class UserFolders {
public:
    virtual ~UserFolders() = default;

    [[nodiscard]] virtual FileURL home() const = 0;

    /// The folders for the user's application data, the preferred one first.
    [[nodiscard]] virtual std::vector<FileURL> applicationSupport() const = 0;

    /// nullopt if there is none.
    [[nodiscard]] virtual std::optional<FileURL> downloads() const = 0;

    /// nullopt if there is none; this call does not create it. The log shows its last path
    /// component.
    [[nodiscard]] virtual std::optional<FileURL> trash() const = 0;
};

}
