#include "Settings/XSettings.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vireline::x11 {
namespace {

/// Builds the property in either byte order.
class Settings {
public:
    explicit Settings(bool isLittleEndian) : isLittleEndian_(isLittleEndian) {}

    void add(const std::string& name, const std::string& value) {
        begin(1, name);
        number(value.size(), 4);
        text(value);
    }
    void add(const std::string& name, std::int32_t value) {
        begin(0, name);
        number(static_cast<std::uint32_t>(value), 4);
    }
    void addColour(const std::string& name) {
        begin(2, name);
        body_ += std::string(8, '\x7f');
    }

    [[nodiscard]] std::string bytes() const {
        Settings head{isLittleEndian_};
        head.body_ = isLittleEndian_ ? '\0' : '\1';
        head.body_ += std::string(3, '\0');
        head.number(9, 4);
        head.number(count_, 4);
        return head.body_ + body_;
    }

private:
    void begin(char kind, const std::string& name) {
        ++count_;
        body_ += kind;
        body_ += '\0';
        number(name.size(), 2);
        text(name);
        number(0, 4);
    }
    void number(std::size_t value, unsigned size) {
        for (unsigned i = 0; i < size; ++i) {
            body_ += static_cast<char>(value >> 8U * (isLittleEndian_ ? i : size - 1 - i));
        }
    }
    void text(const std::string& value) {
        body_ += value + std::string((4 - value.size() % 4) % 4, '\0');
    }

    bool isLittleEndian_;
    std::size_t count_ = 0;
    std::string body_;
};

std::string sample(bool isLittleEndian) {
    Settings settings{isLittleEndian};
    settings.add("Net/IconThemeName", "Papirus");
    settings.add("Net/DoubleClickTime", 400);
    settings.addColour("Some/Colour");
    settings.add("Net/ThemeName", "Adwaita-dark");
    return settings.bytes();
}

TEST(XSettings, ReadsTextsAndNumbersInEitherByteOrder) {
    for (const bool isLittleEndian : {true, false}) {
        const auto values = XSettings::parse(sample(isLittleEndian));
        EXPECT_EQ(values.texts, (xdg::DesktopSettings::Texts{{"Net/IconThemeName", "Papirus"},
                                                             {"Net/ThemeName", "Adwaita-dark"}}));
        EXPECT_EQ(values.numbers, (xdg::DesktopSettings::Numbers{{"Net/DoubleClickTime", 400}}));
    }
}

TEST(XSettings, KeepWhatComesBeforeDamage) {
    const std::string whole = sample(true);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto values = XSettings::parse(whole.substr(0, length));
        EXPECT_LE(values.texts.size(), 2U);
        constexpr std::size_t firstSetting = 12 + 4 + 20 + 4 + 4 + 7;
        EXPECT_EQ(values.texts.contains("Net/IconThemeName"), length >= firstSetting) << length;
    }
}

TEST(XSettings, SurviveAnyBytes) {
    std::mt19937 random{5};
    std::uniform_int_distribution<std::size_t> place{0, sample(true).size() - 1};
    std::uniform_int_distribution<int> value{-128, 127};
    for (int turn = 0; turn < 20'000; ++turn) {
        std::string bytes = sample(true);
        for (int i = 0; i < 4; ++i) {
            bytes[place(random)] = static_cast<char>(value(random));
        }
        EXPECT_LE(XSettings::parse(bytes).texts.size(), bytes.size());
    }
}

}
}
