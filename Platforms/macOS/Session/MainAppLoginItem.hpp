/// Launching at login, through the system's list of login items.
#pragma once

#include "Platform/Desktop/LoginItemService.hpp"

namespace vireline::macos {

class MainAppLoginItem final : public LoginItemService {
public:
    [[nodiscard]] Status status() const override;
    Result<void> registerItem() override;
    Result<void> unregisterItem() override;
};

}
