#include "Settings/LoginItemManager.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/Desktop/LoginItemService.hpp"

namespace vireline {

bool LoginItemManager::isEnabled() const {
    return service_.status() == LoginItemService::Status::enabled;
}

void LoginItemManager::toggle() {
    const bool registers = !isEnabled();
    const auto outcome = registers ? service_.registerItem() : service_.unregisterItem();
    if (!outcome)
        DevLog::write("login item toggle failed: " + outcome.error().description);
    else
        DevLog::write(registers ? "login item registered" : "login item unregistered");
}

}
