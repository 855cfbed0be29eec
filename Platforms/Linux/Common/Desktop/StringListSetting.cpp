#include "Desktop/StringListSetting.hpp"

#include "Foundation/NonCopyable.hpp"

namespace vireline::xdg {
namespace {

using Schema = GLibHandle<GSettingsSchema, g_settings_schema_unref>;
using SchemaKey = GLibHandle<GSettingsSchemaKey, g_settings_schema_key_unref>;
using Texts = GLibHandle<gchar*, g_strfreev>;

bool hasStringList(GSettingsSchema* schema, const char* key) {
    if (g_settings_schema_has_key(schema, key) == 0)
        return false;
    const SchemaKey found{g_settings_schema_get_key(schema, key)};
    const GVariantType* type = g_settings_schema_key_get_value_type(found.get());
    return g_variant_type_equal(type, G_VARIANT_TYPE_STRING_ARRAY) != 0;
}

/// A signal connection and the listener that it calls.
class Connection : private NonCopyable {
public:
    Connection(GSettings* settings, const std::string& signal, std::function<void()> handler)
        : settings_(G_SETTINGS(g_object_ref(settings)))
        , handler_(std::make_shared<std::function<void()>>(std::move(handler)))
        , id_(g_signal_connect(settings, signal.c_str(), G_CALLBACK(changed), this)) {}
    ~Connection() { g_signal_handler_disconnect(settings_.get(), id_); }

private:
    static void changed(GSettings*, const gchar*, gpointer self) {
        // A copy, because the listener may end the connection.
        const auto handler = static_cast<Connection*>(self)->handler_;
        (*handler)();
    }

    GObjectHandle<GSettings> settings_;
    std::shared_ptr<std::function<void()>> handler_;
    gulong id_;
};

}

std::unique_ptr<StringListSetting> StringListSetting::find(const SettingsStorage& storage,
                                                           const char* schema, const char* key,
                                                           const char* path) {
    GSettingsSchemaSource* source =
        storage.schemas != nullptr ? storage.schemas : g_settings_schema_source_get_default();
    if (source == nullptr)
        return nullptr;
    const Schema found{g_settings_schema_source_lookup(source, schema, TRUE)};
    if (!found || !hasStringList(found.get(), key))
        return nullptr;
    // GLib would also abort if the schema has a fixed path that differs from the requested one.
    const char* ownPath = g_settings_schema_get_path(found.get());
    if (ownPath == nullptr && path == nullptr)
        return nullptr;
    GObjectHandle<GSettings> settings{
        g_settings_new_full(found.get(), storage.backend, ownPath != nullptr ? ownPath : path)};
    return std::unique_ptr<StringListSetting>{new StringListSetting{std::move(settings), key}};
}

StringListSetting::StringListSetting(GObjectHandle<GSettings> settings, std::string key)
    : settings_(std::move(settings)), key_(std::move(key)) {}

std::vector<std::string> StringListSetting::get() const {
    const Texts texts{g_settings_get_strv(settings_.get(), key_.c_str())};
    std::vector<std::string> values;
    for (gchar** text = texts.get(); *text != nullptr; ++text)
        values.emplace_back(*text);
    return values;
}

Subscription StringListSetting::observe(std::function<void()> handler) {
    // GSettings announces changes only for keys that have been read.
    static_cast<void>(get());
    return Subscription{
        std::make_shared<Connection>(settings_.get(), "changed::" + key_, std::move(handler))};
}

}
