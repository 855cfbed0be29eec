/// A key of the desktop's settings whose value is a list of strings.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "GLib/GLibHandles.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline::xdg {

/// Where schemas and values are stored. Null means the user's own.
struct SettingsStorage {
    GSettingsSchemaSource* schemas = nullptr;
    GSettingsBackend* backend = nullptr;
};

class StringListSetting {
public:
    /// Null if the schema is not installed or has no such key with a list of strings; GLib would
    /// abort the process for these. `path` is null for a schema with a fixed path.
    [[nodiscard]] static std::unique_ptr<StringListSetting>
    find(const SettingsStorage& storage, const char* schema, const char* key, const char* path);

    [[nodiscard]] std::vector<std::string> get() const;

    /// Notifies on every change of the value.
    [[nodiscard]] Subscription observe(std::function<void()> handler);

private:
    StringListSetting(GObjectHandle<GSettings> settings, std::string key);

    GObjectHandle<GSettings> settings_;
    std::string key_;
};

}
