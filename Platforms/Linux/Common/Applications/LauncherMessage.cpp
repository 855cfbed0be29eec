#include "Applications/LauncherMessage.hpp"

#include "Applications/Entries/DesktopEntry.hpp"
#include "GLib/GLibHandles.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace vireline::xdg {
namespace {

/// Far above what apps send.
constexpr gsize maximumBytes = 16UL * 1024;

using Value = GLibHandle<GVariant, g_variant_unref>;

Value property(GVariant* properties, const char* name, const GVariantType* type) {
    return Value{g_variant_lookup_value(properties, name, type)};
}

std::optional<bool> flag(GVariant* properties, const char* name) {
    const auto value = property(properties, name, G_VARIANT_TYPE_BOOLEAN);
    return value ? std::optional{g_variant_get_boolean(value.get()) != FALSE} : std::nullopt;
}

/// Programs send the count as any integer type.
std::optional<std::int64_t> integer(GVariant* properties, const char* name) {
    constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
    const auto value = property(properties, name, nullptr);
    if (!value)
        return std::nullopt;
    switch (g_variant_classify(value.get())) {
    case G_VARIANT_CLASS_BYTE:
        return g_variant_get_byte(value.get());
    case G_VARIANT_CLASS_INT16:
        return g_variant_get_int16(value.get());
    case G_VARIANT_CLASS_UINT16:
        return g_variant_get_uint16(value.get());
    case G_VARIANT_CLASS_INT32:
        return g_variant_get_int32(value.get());
    case G_VARIANT_CLASS_UINT32:
        return g_variant_get_uint32(value.get());
    case G_VARIANT_CLASS_INT64:
        return g_variant_get_int64(value.get());
    case G_VARIANT_CLASS_UINT64:
        return static_cast<std::int64_t>(
            std::min<std::uint64_t>(g_variant_get_uint64(value.get()), most));
    default:
        return std::nullopt;
    }
}

std::optional<double> number(GVariant* properties, const char* name) {
    const auto value = property(properties, name, G_VARIANT_TYPE_DOUBLE);
    return value ? std::optional{g_variant_get_double(value.get())} : std::nullopt;
}

/// The app of an address such as "application://org.example.Mail.desktop"; empty for any other.
std::string appOf(std::string_view address) {
    constexpr std::string_view scheme = "application://";
    if (!address.starts_with(scheme) || !address.ends_with(DesktopEntries::extension))
        return {};
    address.remove_prefix(scheme.size());
    address.remove_suffix(std::min(address.size(), DesktopEntries::extension.size()));
    return PlainText::isClean(address) ? std::string{address} : std::string{};
}

}

std::optional<LauncherMessage> LauncherMessage::parse(GVariant* parameters) {
    if (parameters == nullptr ||
        g_variant_is_of_type(parameters, G_VARIANT_TYPE("(sa{sv})")) == FALSE ||
        g_variant_get_size(parameters) > maximumBytes)
        return std::nullopt;
    const char* address = nullptr;
    GVariant* raw = nullptr;
    g_variant_get(parameters, "(&s@a{sv})", &address, &raw);
    const Value properties{raw};
    LauncherMessage message{.app = appOf(address), .update = {}};
    if (message.app.empty())
        return std::nullopt;
    message.update = {.count = integer(raw, "count"),
                      .isCountVisible = flag(raw, "count-visible"),
                      .progress = number(raw, "progress"),
                      .isProgressVisible = flag(raw, "progress-visible"),
                      .isUrgent = flag(raw, "urgent")};
    return message;
}

}
