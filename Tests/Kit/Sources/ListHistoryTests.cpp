#include "Sources/ListHistory.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

ListEdit edit(const std::string& name) {
    return {ListEdit::Kind::move, "app." + name, name};
}

/// A manual list with one app of this name.
PinnedListState list(const std::string& name) {
    return {SourceMode::manual, {{"app." + name, name, "/Applications/" + name}}};
}

TEST(ListHistory, NamesWhatItUndoes) {
    EXPECT_EQ(undoTitle({ListEdit::Kind::move, "a.b", "Mail"}), "Undo Move of Mail");
    EXPECT_EQ(undoTitle({ListEdit::Kind::add, "a.b", "Mail"}), "Undo Adding Mail");
    EXPECT_EQ(undoTitle({ListEdit::Kind::remove, "a.b", "Mail"}), "Undo Removing Mail");
}

TEST(ListHistory, GivesTheEditsBackLatestFirst) {
    ListHistory history;
    history.record(edit("A"), list("1"), list("2"));
    history.record(edit("B"), list("2"), list("3"));

    ASSERT_NE(history.last(), nullptr);
    EXPECT_EQ(*history.last(), edit("B"));
    EXPECT_EQ(history.takeLast(), list("2"));
    EXPECT_EQ(*history.last(), edit("A"));
    EXPECT_EQ(history.takeLast(), list("1"));
    EXPECT_EQ(history.last(), nullptr);
}

TEST(ListHistory, KeepsTheLastTenEdits) {
    ListHistory history;
    for (int i = 0; i < 12; ++i)
        history.record(edit("A"), list(std::to_string(i)), list(std::to_string(i + 1)));

    int undone = 0;
    PinnedListState restored;
    while (history.last() != nullptr) {
        restored = history.takeLast();
        ++undone;
    }
    EXPECT_EQ(undone, 10);
    EXPECT_EQ(restored, list("2"));
}

TEST(ListHistory, ForgetsEverythingOnceTheListIsNotAsTheLastEditLeftIt) {
    ListHistory history;
    history.record(edit("A"), list("1"), list("2"));

    history.compare(list("2"));
    EXPECT_NE(history.last(), nullptr);
    history.compare({SourceMode::mirror, list("2").apps});
    EXPECT_EQ(history.last(), nullptr);
}

}
}
