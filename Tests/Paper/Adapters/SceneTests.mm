// The views that a dock creates for a scene, and their accessibility names.
#include "Cocoa/Paper.hpp"
#include "Icons/MacImage.hpp"
#include "Panels/MacPanelWindows.hpp"
#include "Panels/VirelineDockView.hpp"
#include "Panels/VirelineGlassView.hpp"
#include "Translation/PanelInput.hpp"

#include <gtest/gtest.h>

#include <algorithm>

/// What is used of the system's glass.
@protocol PaperRounded
@property CGFloat cornerRadius;
@end

namespace vireline::macos {
namespace {

using Part = NodeID::Part;

class Listener final : public PanelWindowListener {
public:
    void mouseEntered() override {}
    void mouseExited() override {}
    void frameDue() override {}
    void pointerEvent(const PointerEvent&) override {}
    void dragEntered(const std::vector<std::string>&) override {}
    bool dragMoved(Point) override { return false; }
    void dragExited() override {}
    bool dropped(Point) override { return false; }
    [[nodiscard]] std::vector<AccessibleTile> accessibleTiles() override { return tiles; }
    void pressTile(std::uint32_t id) override { pressed.push_back(id); }
    void showTileMenu(std::uint32_t id) override { menus.push_back(id); }

    std::vector<AccessibleTile> tiles;
    std::vector<std::uint32_t> pressed;
    std::vector<std::uint32_t> menus;
};

/// A dock's view in a window at the display's corner.
class Scenes : public testing::Test {
protected:
    Scenes() {
        @autoreleasepool {
            paper::plug({{.number = 1}});
            window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 400, 100)
                                                 styleMask:0
                                                   backing:NSBackingStoreBuffered
                                                     defer:NO];
            window.releasedWhenClosed = NO;
            dock = [[VirelineDockView alloc] initWithFrame:NSMakeRect(0, 0, 400, 100) input:input];
            window.contentView = dock;
        }
    }

    static SceneNode node(Part part, std::uint32_t owner, Rect frame,
                          decltype(SceneNode::content) content) {
        return {.id = {part, owner}, .frame = frame, .content = std::move(content)};
    }
    static NSImage* image(BOOL isTemplate) {
        NSImage* const made = isTemplate ? [NSImage imageWithSystemSymbolName:@"trash.fill"
                                                     accessibilityDescription:@"Trash"]
                                         : [NSImage imageNamed:@"NSTrashEmpty"];
        made.size = {44, 44};
        return made;
    }
    static ImageNode icon(BOOL isTemplate, double largest) {
        return {std::make_shared<MacImage>(image(isTemplate), Size{44, 44}), 44, largest};
    }
    void show(std::vector<SceneNode> nodes) {
        @autoreleasepool {
            Scene scene;
            scene.nodes = std::move(nodes);
            [dock presentScene:scene];
            [dock paperDisplay];
        }
    }
    [[nodiscard]] NSView* view(NSUInteger index) const { return dock.subviews[index]; }
    /// The background of the glass that a node shows.
    [[nodiscard]] NSView* background(NSUInteger index) const {
        return view(index).subviews.firstObject.subviews.firstObject;
    }
    static std::string backgroundOf(NSView* view) {
        return [[NSColor colorWithCGColor:view.layer.backgroundColor] paperName].paperText;
    }

    Listener listener;
    std::shared_ptr<PanelInput> input = std::make_shared<PanelInput>(listener);
    NSWindow* window = nil;
    VirelineDockView* dock = nil;
};

TEST_F(Scenes, FillDotsHandlesAndLinesWithTheirColours) {
    @autoreleasepool {
        show({node(Part::dot, 1, {10, 10, 4, 4}, DotNode{}),
              node(Part::handle, 0, {20, 10, 60, 5}, HandleNode{}),
              node(Part::separator, 0, {100, 10, 1, 40}, SeparatorNode{0.25})});
        EXPECT_EQ(backgroundOf(view(0)), "secondaryLabel");
        EXPECT_EQ(backgroundOf(view(1)), "label");
        EXPECT_EQ(backgroundOf(view(2)), "separator");
        EXPECT_DOUBLE_EQ(view(0).layer.cornerRadius, 2);
        EXPECT_DOUBLE_EQ(view(1).layer.cornerRadius, 2.5);
        EXPECT_DOUBLE_EQ(view(2).layer.cornerRadius, 0.25);
        EXPECT_TRUE(view(0).wantsLayer);
    }
}

TEST_F(Scenes, ShowWhatAppsSignal) {
    @autoreleasepool {
        show({node(Part::mark, 1, {10, 10, 16, 4}, MarkNode{}),
              node(Part::badge, 1, {40, 10, 30, 18}, BadgeNode{"99+"}),
              node(Part::progress, 1, {100, 10, 40, 6}, ProgressNode{0.5})});
        EXPECT_EQ(backgroundOf(view(0)), "systemOrange");
        EXPECT_DOUBLE_EQ(view(0).layer.cornerRadius, 2);
        EXPECT_EQ(backgroundOf(view(1)), "systemRed");
        EXPECT_DOUBLE_EQ(view(1).layer.cornerRadius, 9);
        NSTextField* const text = static_cast<NSTextField*>(view(1).subviews.firstObject);
        EXPECT_EQ(text.stringValue.paperText, "99+");
        EXPECT_DOUBLE_EQ(text.frame.size.width, 30);
        EXPECT_DOUBLE_EQ(text.font.paperSize, 0.68 * 18);
        EXPECT_EQ(backgroundOf(view(2)), "label");
        NSView* const done = view(2).subviews.firstObject;
        EXPECT_EQ(backgroundOf(done), "systemOrange");
        EXPECT_DOUBLE_EQ(done.frame.size.width, 22) << "a circle, and half of what is left";
        EXPECT_DOUBLE_EQ(done.frame.size.height, 5);
    }
}

TEST_F(Scenes, KeepTheViewOfANodeThatStaysAndReplaceOneOfAnotherKind) {
    @autoreleasepool {
        const SceneNode dot = node(Part::dot, 1, {10, 10, 4, 4}, DotNode{});
        show({dot, node(Part::icon, 1, {20, 10, 44, 44}, icon(NO, 44))});
        NSView* const first = view(0);
        NSView* const second = view(1);
        show({node(Part::icon, 1, {30, 10, 44, 44}, icon(NO, 44)), dot});
        EXPECT_EQ(view(0), second);
        EXPECT_EQ(view(1), first);
        EXPECT_DOUBLE_EQ(second.frame.origin.x, 30);
        show({node(Part::dot, 1, {10, 10, 4, 4}, HandleNode{})});
        ASSERT_EQ(dock.subviews.count, 1U);
        EXPECT_NE(view(0), first);
        show({});
        EXPECT_EQ(dock.subviews.count, 0U);
    }
}

TEST_F(Scenes, ShowIconsSharpAtTheirLargestSize) {
    @autoreleasepool {
        show({node(Part::icon, 1, {20, 10, 44, 44}, icon(NO, 88))});
        EXPECT_EQ([view(0).layer.contents paperText], "NSTrashEmpty");
        EXPECT_DOUBLE_EQ(view(0).layer.contentsScale, 4);
        EXPECT_EQ(view(0).layer.contentsGravity, kCAGravityResize);
        EXPECT_EQ(view(0).layer.minificationFilter, kCAFilterTrilinear);
        show({node(Part::icon, 1, {20, 10, 44, 44}, ImageNode{nullptr, 44, 44})});
        EXPECT_EQ(view(0).layer.contents, nil);
    }
}

TEST_F(Scenes, DrawSymbolsInTheColourOfLabels) {
    @autoreleasepool {
        show({node(Part::icon, 1, {20, 10, 44, 44}, icon(YES, 44))});
        EXPECT_EQ([view(0).layer.contents paperText], "drawn");
        EXPECT_EQ(paper::drawing(), (std::vector<std::string>{"draw trash.fill", "set label",
                                                              "fill where there is something"}));
    }
}

TEST_F(Scenes, FadeNodes) {
    @autoreleasepool {
        SceneNode dot = node(Part::dot, 1, {10, 10, 4, 4}, DotNode{});
        dot.opacity = 0.4;
        show({dot});
        EXPECT_DOUBLE_EQ(view(0).alphaValue, 0.4);
        dot.opacity = 1.5;
        show({dot});
        EXPECT_DOUBLE_EQ(view(0).alphaValue, 1);
    }
}

TEST_F(Scenes, PutAGlassUnderALabelThatIsAsWideAsItsText) {
    @autoreleasepool {
        show({node(Part::label, 1, {50, 10, 200, 30}, LabelNode{"Notes", 12, {9, 4}})});
        NSView* const label = view(0);
        // On paper, each byte of a text is 0.55 of its font size wide, and a line is 1.25 of it
        // high.
        EXPECT_DOUBLE_EQ(label.frame.size.width, 33 + 18);
        EXPECT_DOUBLE_EQ(label.frame.size.height, 15 + 8);
        EXPECT_DOUBLE_EQ(label.frame.origin.x + label.frame.size.width / 2, 150);
        VirelineGlassView* const glass =
            static_cast<VirelineGlassView*>(static_cast<id>(label.subviews.firstObject));
        EXPECT_DOUBLE_EQ(glass.cornerRadius, label.frame.size.height / 2);
        EXPECT_DOUBLE_EQ(glass.frame.size.width, label.frame.size.width);
        NSView* view = glass;
        while (view != nil && ![view isKindOfClass:NSTextField.class])
            view = view.subviews.firstObject;
        NSTextField* const text = static_cast<NSTextField*>(static_cast<id>(view));
        EXPECT_EQ(text.stringValue.paperText, "Notes");
        EXPECT_EQ(text.font.paperSize, 12);
        EXPECT_DOUBLE_EQ(text.frame.origin.x, 9);
        EXPECT_DOUBLE_EQ(text.frame.origin.y, 4);
        EXPECT_DOUBLE_EQ(text.frame.size.width, 33);
        EXPECT_DOUBLE_EQ(text.superview.frame.size.width, label.frame.size.width);
        EXPECT_EQ(text.textColor.paperName.paperText, "label");
    }
}

TEST_F(Scenes, RoundTheGlassOfTheStrip) {
    @autoreleasepool {
        show({node(Part::strip, 0, {0, 0, 200, 60}, GlassNode{18})});
        VirelineGlassView* const glass =
            static_cast<VirelineGlassView*>(static_cast<id>(view(0).subviews.firstObject));
        EXPECT_DOUBLE_EQ(glass.cornerRadius, 18);
        EXPECT_DOUBLE_EQ(glass.frame.size.width, 200);
        EXPECT_DOUBLE_EQ(glass.subviews.firstObject.frame.size.height, 60);
        show({node(Part::strip, 0, {0, 0, 200, 20}, GlassNode{18})});
        EXPECT_DOUBLE_EQ(glass.cornerRadius, 10);
    }
}

TEST_F(Scenes, RoundTheMaskOfTheMaterialWhereThereIsNoGlass) {
    @autoreleasepool {
        paper::setSystemVersion(15);
        show({node(Part::strip, 0, {0, 0, 200, 60}, GlassNode{18})});
        NSVisualEffectView* const material =
            static_cast<NSVisualEffectView*>(static_cast<id>(background(0)));
        ASSERT_TRUE([material isKindOfClass:NSVisualEffectView.class]);
        EXPECT_DOUBLE_EQ(material.maskImage.size.width, 2 * 18 + 1);
        EXPECT_DOUBLE_EQ(material.maskImage.capInsets.left, 18);
    }
}

TEST_F(Scenes, RoundTheGlassItselfWhereTheSystemHasIt) {
    @autoreleasepool {
        paper::setSystemVersion(26);
        show({node(Part::strip, 0, {0, 0, 200, 60}, GlassNode{18})});
        NSView* const glass = background(0);
        ASSERT_TRUE([glass isKindOfClass:NSClassFromString(@"NSGlassEffectView")]);
        EXPECT_DOUBLE_EQ(static_cast<id<PaperRounded>>(static_cast<id>(glass)).cornerRadius, 18);
        show({node(Part::strip, 0, {0, 0, 200, 20}, GlassNode{18})});
        EXPECT_DOUBLE_EQ(static_cast<id<PaperRounded>>(static_cast<id>(glass)).cornerRadius, 10);
    }
}

class GlassOfAnotherMake : public Scenes, public testing::WithParamInterface<const char*> {};

TEST_P(GlassOfAnotherMake, IsNotUsed) {
    @autoreleasepool {
        paper::setSystemVersion(26);
        paper::rt::forget("NSGlassEffectView", GetParam());
        show({node(Part::strip, 0, {0, 0, 200, 60}, GlassNode{18})});
        EXPECT_TRUE([background(0) isKindOfClass:NSVisualEffectView.class]);
    }
}

INSTANTIATE_TEST_SUITE_P(Without, GlassOfAnotherMake,
                         testing::Values("setCornerRadius:", "setContentView:"));

TEST_F(Scenes, AreGoneWithTheirDockFromAWindowThatIsStillHeld) {
    NSWindow* held = nil;
    @autoreleasepool {
        auto panel = MacPanelWindows{}.makePanel(7, {0, 0, 400, 100}, listener);
        held = paper::windowTitled("Vireline dock #7");
        EXPECT_NE(held.contentView, nil);
        panel.reset();
        paper::drain();
    }
    EXPECT_EQ(held.contentView, nil);
    EXPECT_FALSE(held.visible);
}

TEST_F(Scenes, LeadAssistiveTechnologyToTheTiles) {
    @autoreleasepool {
        listener.tiles = {{.id = 4,
                           .label = "Notes",
                           .value = "running",
                           .frame = {0, 0, 50, 100},
                           .hasMenu = true},
                          {.id = 7,
                           .label = "Trash",
                           .value = std::nullopt,
                           .frame = {50, 0, 50, 100},
                           .hasMenu = false}};
        const NSArray* const tiles = [dock accessibilityChildren];
        ASSERT_EQ(tiles.count, 2U);
        const id notes = tiles[0];
        EXPECT_EQ([notes accessibilityLabel].paperText, "Notes");
        EXPECT_EQ([[notes accessibilityValue] paperText], "running");
        EXPECT_EQ([tiles[1] accessibilityValue], nil);
        EXPECT_EQ([notes accessibilityRole], NSAccessibilityButtonRole);
        EXPECT_EQ([dock accessibilityRole], NSAccessibilityGroupRole);
        EXPECT_EQ([notes accessibilityParent], dock);
        EXPECT_TRUE([notes isAccessibilitySelectorAllowed:@selector(accessibilityPerformShowMenu)]);
        EXPECT_FALSE(
            [tiles[1] isAccessibilitySelectorAllowed:@selector(accessibilityPerformShowMenu)]);
        EXPECT_TRUE([tiles[1] isAccessibilitySelectorAllowed:@selector(accessibilityPerformPress)]);
        EXPECT_TRUE([notes accessibilityPerformPress]);
        EXPECT_TRUE([notes accessibilityPerformShowMenu]);
        EXPECT_EQ(listener.pressed, std::vector<std::uint32_t>{4});
        EXPECT_EQ(listener.menus, std::vector<std::uint32_t>{4});
        EXPECT_EQ(([dock accessibilityHitTest:NSPoint{70, 50}]), tiles[1]);
        EXPECT_EQ(([dock accessibilityHitTest:NSPoint{300, 50}]), dock);
        // A tile that remains keeps its element.
        EXPECT_EQ([dock accessibilityChildren][0], notes);
        listener.tiles.erase(listener.tiles.begin());
        EXPECT_EQ([dock accessibilityChildren].count, 1U);
        EXPECT_EQ([notes accessibilityLabel], nil);
        EXPECT_EQ([notes accessibilityFrame].size.width, 0);
    }
}

TEST_F(Scenes, SayNothingOfATileWhileTheSystemRaises) {
    @autoreleasepool {
        listener.tiles = {{.id = 4,
                           .label = "Notes",
                           .value = "running",
                           .frame = {0, 0, 50, 100},
                           .hasMenu = true}};
        const id notes = [dock accessibilityChildren][0];
        EXPECT_GT([notes accessibilityFrame].size.width, 0);
        paper::rt::makeRaise("tile:");
        EXPECT_EQ([notes accessibilityLabel], nil);
        EXPECT_EQ([notes accessibilityValue], nil);
        EXPECT_EQ([notes accessibilityFrame].size.width, 0);
        EXPECT_FALSE(
            [notes isAccessibilitySelectorAllowed:@selector(accessibilityPerformShowMenu)]);
        paper::rt::clearFaults();
        EXPECT_EQ([notes accessibilityLabel].paperText, "Notes");
    }
}

TEST_F(Scenes, TellAssistiveTechnologyOfOtherTilesAndOfAppsThatRun) {
    @autoreleasepool {
        const SceneNode notes = node(Part::icon, 4, {0, 0, 44, 44}, icon(NO, 44));
        const SceneNode mail = node(Part::icon, 5, {50, 0, 44, 44}, icon(NO, 44));
        SceneNode dot = node(Part::dot, 4, {20, 50, 4, 4}, DotNode{});
        dot.opacity = 0;
        for (const std::uint32_t tile : {4U, 5U})
            listener.tiles.push_back({.id = tile,
                                      .label = "A tile",
                                      .value = std::nullopt,
                                      .frame = {0, 0, 50, 100},
                                      .hasMenu = true});
        show({notes, mail, dot});
        paper::requests().clear();
        dot.opacity = 1;
        show({notes, mail, dot});
        EXPECT_TRUE(paper::requests().empty()) << "nothing asked yet";
        static_cast<void>([dock accessibilityChildren]);
        dot.opacity = 0;
        show({notes, mail, dot});
        // Only the tile that changed announces it.
        ASSERT_EQ(paper::requests().size(), 1U);
        EXPECT_TRUE(paper::requests()[0].ends_with("AXValueChanged"));
        show({});
        ASSERT_EQ(paper::requests().size(), 2U);
        EXPECT_TRUE(paper::requests()[1].ends_with("AXLayoutChanged"));
    }
}

}
}
