/// The user's folders, according to NSFileManager.
#pragma once

#include "Platform/Files/UserFolders.hpp"

namespace vireline::macos {

class FoundationUserFolders final : public UserFolders {
public:
    [[nodiscard]] FileURL home() const override;
    [[nodiscard]] std::vector<FileURL> applicationSupport() const override;
    [[nodiscard]] std::optional<FileURL> downloads() const override;
    [[nodiscard]] std::optional<FileURL> trash() const override;
};

}
