/// The system's icons, named images and symbols.
#pragma once

#include "Platform/Applications/Icons.hpp"

namespace vireline::macos {

class WorkspaceIcons final : public Icons {
public:
    [[nodiscard]] ImageHandle iconForFile(const std::string& path, const std::string& key,
                                          Size size) override;
    [[nodiscard]] ImageHandle namedImage(const std::string& name, Size size) override;
    [[nodiscard]] ImageHandle symbol(const std::string& name,
                                     const std::string& accessibilityDescription,
                                     Size size) override;
    /// The system does not announce such changes.
    [[nodiscard]] Subscription observeChanges(std::function<void()> /*handler*/) override {
        return {};
    }
};

}
