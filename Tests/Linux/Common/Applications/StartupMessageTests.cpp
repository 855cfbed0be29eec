#include "Applications/Launching/StartupMessage.hpp"

#include <gtest/gtest.h>

#include <random>

namespace vireline {
namespace {

using xdg::StartupMessage;
using xdg::StartupMessageAssembler;
namespace StartupMessages = xdg::StartupMessages;

std::optional<std::string> deliver(StartupMessageAssembler& assembler, std::uint32_t sender,
                                   const std::string& text) {
    std::optional<std::string> complete;
    bool isFirst = true;
    for (const auto& chunk : StartupMessages::chunks(text)) {
        complete = assembler.take(sender, isFirst, chunk);
        isFirst = false;
    }
    return complete;
}

TEST(StartupMessage, HasAKindAndValues) {
    const auto message =
        StartupMessages::parse("new: ID=a-1_TIME9 NAME=\"Text Editor\" SCREEN=0 WMCLASS=gedit")
            .value_or(StartupMessage{});

    EXPECT_EQ(message.kind, "new");
    EXPECT_EQ(message.value("ID"), "a-1_TIME9");
    EXPECT_EQ(message.value("NAME"), "Text Editor");
    EXPECT_EQ(message.value("WMCLASS"), "gedit");
    EXPECT_EQ(message.value("BIN"), "");
}

TEST(StartupMessage, QuotesAndBackslashesSurviveTheWay) {
    const StartupMessage message{.kind = "new",
                                 .values = {{"ID", "x"}, {"NAME", R"(a "b" \c  d)"}}};

    EXPECT_EQ(StartupMessages::parse(StartupMessages::text(message)), message);
}

TEST(StartupMessage, NeedsAnIDAndAKnownKind) {
    EXPECT_FALSE(StartupMessages::parse("new: NAME=x"));
    EXPECT_FALSE(StartupMessages::parse("old: ID=x"));
    EXPECT_FALSE(StartupMessages::parse("remove"));
    EXPECT_FALSE(StartupMessages::parse(""));
}

TEST(StartupMessage, AnyBytesAreMetWithAMessageOrNone) {
    const std::string whole = R"(new: ID="a b" NAME=c\ d SCREEN=0)";
    std::mt19937 random{3};
    for (int i = 0; i < 20'000; ++i) {
        std::string damaged = whole;
        damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        const auto message = StartupMessages::parse(damaged.substr(0, random() % 40));
        EXPECT_TRUE(!message || !message->value("ID").empty());
    }
}

TEST(StartupMessageAssembler, PutsPiecesTogether) {
    StartupMessageAssembler assembler;
    const std::string text = "remove: ID=" + std::string(100, 'x');

    EXPECT_EQ(deliver(assembler, 1, text), text);
}

TEST(StartupMessageAssembler, ATextThatFillsItsPiecesEndsWithAnEmptyOne) {
    StartupMessageAssembler assembler;
    const std::string text(StartupMessages::chunkBytes * 2, 'x');

    EXPECT_EQ(StartupMessages::chunks(text).size(), 3U);
    EXPECT_EQ(deliver(assembler, 1, text), text);
}

TEST(StartupMessageAssembler, KeepsSendersApart) {
    StartupMessageAssembler assembler;
    const auto one = StartupMessages::chunks(std::string(25, 'a'));
    const auto two = StartupMessages::chunks(std::string(25, 'b'));

    EXPECT_FALSE(assembler.take(1, true, one[0]));
    EXPECT_FALSE(assembler.take(2, true, two[0]));
    EXPECT_EQ(assembler.take(1, false, one[1]), std::string(25, 'a'));
    EXPECT_EQ(assembler.take(2, false, two[1]), std::string(25, 'b'));
}

TEST(StartupMessageAssembler, APieceWithoutABeginningIsDropped) {
    StartupMessageAssembler assembler;

    EXPECT_FALSE(assembler.take(1, false, StartupMessages::chunks("x")[0]));
}

TEST(StartupMessageAssembler, ATextWithoutAnEndIsDropped) {
    StartupMessageAssembler assembler;
    const std::string text(StartupMessages::maximumBytes * 3, 'x');

    EXPECT_FALSE(deliver(assembler, 1, text));
    EXPECT_EQ(deliver(assembler, 1, "remove: ID=1"), "remove: ID=1");
}

TEST(StartupMessageAssembler, ManyUnfinishedTextsPushTheOldestOut) {
    StartupMessageAssembler assembler;
    const auto pieces = StartupMessages::chunks(std::string(25, 'a'));
    for (std::uint32_t sender = 0; sender <= StartupMessageAssembler::maximumSenders; ++sender)
        EXPECT_FALSE(assembler.take(sender, true, pieces[0]));

    EXPECT_FALSE(assembler.take(0, false, pieces[1]));
    EXPECT_TRUE(assembler.take(1, false, pieces[1]));
}

}
}
