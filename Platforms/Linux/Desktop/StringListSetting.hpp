/// One key of the desktop's settings that holds a list of texts.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "GLib/GLibHandles.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline::x11 {

/// Where settings are described and stored. Null means the user's own.
struct SettingsStorage {
    GSettingsSchemaSource* schemas = nullptr;
    GSettingsBackend* backend = nullptr;
};

class StringListSetting {
public:
    /// Null when the schema is not installed, or has no such key that holds a list of texts; GLib
    /// ends the process of who asks for one of these. `path` is null for a schema that has its own.
    [[nodiscard]] static std::unique_ptr<StringListSetting>
    find(const SettingsStorage& storage, const char* schema, const char* key, const char* path);

    [[nodiscard]] std::vector<std::string> get() const;

    /// Announces every change of the value.
    [[nodiscard]] Subscription observe(std::function<void()> handler);

private:
    StringListSetting(GObjectHandle<GSettings> settings, std::string key);

    GObjectHandle<GSettings> settings_;
    std::string key_;
};

}
