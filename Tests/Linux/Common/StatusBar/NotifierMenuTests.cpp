#include "StatusBar/NotifierMenu.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vireline::xdg {
namespace {

using Value = GLibHandle<GVariant, g_variant_unref>;

/// The value in GLib's text format.
std::string text(GVariant* floating) {
    const Value value{g_variant_ref_sink(floating)};
    const GLibHandle<char, g_free> printed{g_variant_print(value.get(), FALSE)};
    return printed.get();
}

Menu sample() {
    return {{MenuCommand{"Settings…", ','}, MenuSeparator{}, MenuCommand{"On", 0, true}}};
}

TEST(NotifierMenu, SaysHowACommandReadsAndWhichKeyPressesIt) {
    EXPECT_EQ(text(NotifierMenuLayout::properties(MenuCommand{"Settings…", ','})),
              "{'label': <'Settings…'>, 'shortcut': <[['Control', 'comma']]>}");
    EXPECT_EQ(text(NotifierMenuLayout::properties(MenuCommand{"Quit Vireline", 'q'})),
              "{'label': <'Quit Vireline'>, 'shortcut': <[['Control', 'q']]>}");
    EXPECT_EQ(text(NotifierMenuLayout::properties(MenuCommand{"Plain"})), "{'label': <'Plain'>}");
}

TEST(NotifierMenu, SaysWhetherACheckMarkIsSet) {
    EXPECT_EQ(text(NotifierMenuLayout::properties(MenuCommand{"On", 0, true})),
              "{'label': <'On'>, 'toggle-type': <'checkmark'>, 'toggle-state': <1>}");
    EXPECT_EQ(text(NotifierMenuLayout::properties(MenuCommand{"Off", 0, false})),
              "{'label': <'Off'>, 'toggle-type': <'checkmark'>, 'toggle-state': <0>}");
}

TEST(NotifierMenu, KeepsUnderscoresFromBeingMnemonics) {
    EXPECT_EQ(text(NotifierMenuLayout::properties(MenuCommand{"a_b"})), "{'label': <'a__b'>}");
}

TEST(NotifierMenu, ListsItsEntriesBelowTheRoot) {
    EXPECT_EQ(
        text(NotifierMenuLayout::layout(sample(), 0, -1)),
        "(0, {'children-display': <'submenu'>}, "
        "[<(1, {'label': <'Settings…'>, 'shortcut': <[['Control', 'comma']]>}, @av [])>, "
        "<(2, {'type': <'separator'>}, @av [])>, "
        "<(3, {'label': <'On'>, 'toggle-type': <'checkmark'>, 'toggle-state': <1>}, @av [])>])");
}

TEST(NotifierMenu, ListsNoMoreThanIsAskedFor) {
    EXPECT_EQ(text(NotifierMenuLayout::layout(sample(), 0, 0)),
              "(0, {'children-display': <'submenu'>}, [])");
    EXPECT_EQ(text(NotifierMenuLayout::layout(sample(), 2, -1)),
              "(2, {'type': <'separator'>}, [])");
    // Unknown IDs yield the menu itself.
    for (const int id : {4, -1, 1000})
        EXPECT_EQ(text(NotifierMenuLayout::layout(sample(), id, 0)),
                  "(0, {'children-display': <'submenu'>}, [])");
}

}
}
