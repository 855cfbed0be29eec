#include "Applications/LauncherMessage.hpp"
#include "GLib/GLibHandles.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vireline::xdg {
namespace {

using Value = GLibHandle<GVariant, g_variant_unref>;

/// The message in GVariant's text format.
std::optional<LauncherMessage> parsedMessage(const std::string& text) {
    GError* raw = nullptr;
    const Value value{g_variant_parse(nullptr, text.c_str(), nullptr, nullptr, &raw)};
    const GErrorHandle error{raw};
    EXPECT_TRUE(value) << text;
    return LauncherMessage::parse(value.get());
}

TEST(LauncherMessage, SaysWhatIsNewOfAnApp) {
    const auto message = parsedMessage(
        "('application://org.example.Mail.desktop', {'count': <int64 3>, 'count-visible': <true>, "
        "'progress': <0.25>, 'progress-visible': <false>, 'urgent': <true>, 'quicklist': <'/m'>})");

    ASSERT_TRUE(message);
    EXPECT_EQ(message->app, "org.example.Mail");
    EXPECT_EQ(message->update.count, 3);
    EXPECT_EQ(message->update.isCountVisible, true);
    EXPECT_EQ(message->update.progress, 0.25);
    EXPECT_EQ(message->update.isProgressVisible, false);
    EXPECT_EQ(message->update.isUrgent, true);
}

TEST(LauncherMessage, LeavesOutWhatItDoesNotMention) {
    const auto message = parsedMessage("('application://mail.desktop', @a{sv} {})");

    ASSERT_TRUE(message);
    EXPECT_EQ(message->update.count, std::nullopt);
    EXPECT_EQ(message->update.isUrgent, std::nullopt);
}

TEST(LauncherMessage, TakesCountsOfAnyIntegerTypeAndIgnoresOtherTypes) {
    const auto count = [](const std::string& value) {
        return parsedMessage("('application://mail.desktop', {'count': <" + value + ">})")
            ->update.count;
    };
    EXPECT_EQ(count("int32 -4"), -4);
    EXPECT_EQ(count("uint32 4000000000"), 4000000000);
    EXPECT_EQ(count("uint64 5000000000"), 5000000000);
    EXPECT_EQ(count("uint64 18446744073709551615"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(count("int16 -4"), -4);
    EXPECT_EQ(count("uint16 65535"), 65535);
    EXPECT_EQ(count("byte 255"), 255);
    EXPECT_EQ(count("'3'"), std::nullopt);
    EXPECT_EQ(count("3.5"), std::nullopt);
    EXPECT_EQ(parsedMessage("('application://mail.desktop', {'urgent': <1>})")->update.isUrgent,
              std::nullopt);
}

TEST(LauncherMessage, IsOfAnAppOrIgnored) {
    EXPECT_FALSE(parsedMessage("('mail.desktop', @a{sv} {})"));
    EXPECT_FALSE(parsedMessage("('application://mail', @a{sv} {})"));
    EXPECT_FALSE(parsedMessage("('application://.desktop', @a{sv} {})"));
    EXPECT_FALSE(parsedMessage("('application://a\\nb.desktop', @a{sv} {})"));
    EXPECT_FALSE(parsedMessage("('application://mail.desktop', 5)"));
    EXPECT_FALSE(parsedMessage("'application://mail.desktop'"));
    EXPECT_FALSE(parsedMessage("('application://mail.desktop', {'x': <'" + std::string(20000, 'x') +
                               "'>})"));
    EXPECT_FALSE(LauncherMessage::parse(nullptr));
}

}
}
