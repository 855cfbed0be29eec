/// The settings that the desktop's settings daemon offers to all programs, by the names that they
/// have there, such as "Net/IconThemeName".
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace vireline::xdg {

struct DesktopSettings {
    using Texts = std::map<std::string, std::string, std::less<>>;
    using Numbers = std::map<std::string, std::int32_t, std::less<>>;

    Texts texts;
    Numbers numbers;

    bool operator==(const DesktopSettings&) const = default;
};

class SettingsDaemon {
public:
    virtual ~SettingsDaemon() = default;

    /// Empty without a settings daemon.
    [[nodiscard]] virtual DesktopSettings read() const = 0;

    /// Calls `handler` after settings changed, or a settings daemon started. Not when it exits,
    /// since it may be about to restart.
    [[nodiscard]] virtual Subscription observe(std::function<void()> handler) = 0;
};

}
