/// Status items in the menu bar.
#pragma once

#include "Platform/StatusBar.hpp"

namespace vireline::macos {

class MenuBar final : public StatusBar {
public:
    /// If the menu bar is full, the item is not visible until there is room.
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem() override;
};

}
