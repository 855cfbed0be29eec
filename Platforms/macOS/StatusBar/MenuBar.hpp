/// Status items in the menu bar.
#pragma once

#include "Platform/StatusBar.hpp"

namespace vireline::macos {

class MenuBar final : public StatusBar {
public:
    /// In a full menu bar an item has no place until the user makes some.
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem() override;
};

}
