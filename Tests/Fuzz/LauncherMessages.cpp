/// Fuzzes the announcements of counts, progress and urgency that any program can send over the
/// session bus. The input is a signal's parameters in GVariant's binary form, after a first byte
/// that chooses their type. Whatever is read from them is announced by two programs in turn.
#include "Applications/LauncherMessage.hpp"
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "GLib/GLibHandles.hpp"
#include "Text/PlainText.hpp"

#include <array>

namespace vireline::xdg {
namespace {

using Value = GLibHandle<GVariant, g_variant_unref>;

/// The first is the protocol's.
constexpr std::array types{"(sa{sv})", "(sa{ss})", "(s)", "(a{sv}s)", "a{sv}", "v"};

Value parameters(std::string_view input) {
    const auto type = static_cast<unsigned char>(input.front()) % types.size();
    input.remove_prefix(1);
    // Copied, so that reading beyond the end is noticed.
    const GLibHandle<GBytes, g_bytes_unref> bytes{g_bytes_new(input.data(), input.size())};
    constexpr gboolean trusted = FALSE;
    return Value{g_variant_ref_sink(
        g_variant_new_from_bytes(G_VARIANT_TYPE(types.at(type)), bytes.get(), trusted))};
}

void check(const TileStatus& status) {
    require(status != TileStatus{}, "an app about which there is nothing to show is left out");
    require(!status.count || *status.count >= 1, "a count is positive");
    require(!status.count || TileStatuses::badge(*status.count).size() <= 3, "a badge is short");
    require(!status.progress || (*status.progress >= 0 && *status.progress <= 1),
            "progress is between nothing and all");
}

void read(std::string_view input) {
    if (input.empty())
        return;
    const Value value = parameters(input);
    const auto message = LauncherMessage::parse(value.get());
    if (!message)
        return;
    require(!message->app.empty(), "an app has an identifier");
    require(PlainText::isClean(message->app), "an identifier is fit to be logged");
    LauncherEntries entries;
    require(entries.update(":1.1", message->app, message->update), "the first program is new");
    const auto statuses = entries.statuses();
    require(statuses.size() <= 1, "a message is about one app");
    for (const auto& [app, status] : statuses)
        check(status);
    require(entries.update(":1.2", message->app, message->update), "the second program is new");
    require(entries.statuses() == statuses, "the same from another program shows the same");
    entries.remove(":1.1");
    entries.remove(":1.2");
    require(entries.statuses().empty(), "what programs announced goes with them");
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vireline::xdg::read(vireline::fuzz::text(data, size));
    return 0;
}
