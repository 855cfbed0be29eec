#include "Panels/VirelineDockView.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Panels/VirelineNodeView.hpp"
#include "Panels/VirelineTileElement.hpp"
#include "Translation/AccessibleScene.hpp"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

using vireline::AccessibleTile;
using vireline::NodeID;
using vireline::Scene;
using vireline::SceneNode;
using vireline::macos::AccessibleScene;
using vireline::macos::attempt;
using vireline::macos::attemptOr;
using vireline::macos::PanelInput;
using vireline::macos::toPoint;

namespace {

struct ShownNode {
    SceneNode node;
    VirelineNodeView* __strong view;
};

struct ShownTile {
    std::uint32_t identifier;
    VirelineTileElement* __strong element;
};

bool isSameKind(const SceneNode& one, const SceneNode& other) {
    return one.content.index() == other.content.index();
}

}

@implementation VirelineDockView {
    std::weak_ptr<PanelInput> _input;
    Scene _scene;
    std::map<NodeID, ShownNode> _nodes;
    CGFloat _scale;
    std::vector<ShownTile> _tiles;
    /// What assistive technology knows of the scene; nullopt until its first query.
    std::optional<AccessibleScene> _known;
}

- (instancetype)initWithFrame:(NSRect)frame input:(std::weak_ptr<PanelInput>)input {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    _input = std::move(input);
    _scale = 1;
    self.wantsLayer = YES;
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)presentScene:(const Scene&)scene {
    _scene = scene;
    [self show];
    [self announce];
}

- (void)presentAgain {
    // Read again, since not every change of the scale is announced.
    _scale = self.window == nil ? 1 : self.window.backingScaleFactor;
    for (auto& [identifier, shown] : _nodes) {
        [shown.view showNode:shown.node scale:_scale];
        shown.view.needsDisplay = YES;
    }
}

- (void)viewDidChangeBackingProperties {
    attempt("viewDidChangeBackingProperties", [&] {
        [super viewDidChangeBackingProperties];
        [self presentAgain];
    });
}

- (void)viewDidMoveToWindow {
    attempt("viewDidMoveToWindow", [&] {
        [super viewDidMoveToWindow];
        [self presentAgain];
    });
}

- (void)viewDidChangeEffectiveAppearance {
    attempt("viewDidChangeEffectiveAppearance", [&] {
        [super viewDidChangeEffectiveAppearance];
        [self presentAgain];
    });
}

- (void)show {
    NSMutableArray<NSView*>* const order = [NSMutableArray array];
    for (const SceneNode& node : _scene.nodes)
        [order addObject:[self show:node]];
    if (![self.subviews isEqualToArray:order])
        self.subviews = order;
    std::erase_if(_nodes, [&](const auto& shown) {
        return std::ranges::find(_scene.nodes, shown.first, &SceneNode::id) == _scene.nodes.end();
    });
}

/// Returns the view that shows the node, updating or creating it.
- (NSView*)show:(const SceneNode&)node {
    const auto found = _nodes.find(node.id);
    if (found == _nodes.end() || !isSameKind(found->second.node, node)) {
        VirelineNodeView* const view = [VirelineNodeView viewForNode:node];
        [view showNode:node scale:_scale];
        _nodes.insert_or_assign(node.id, ShownNode{node, view});
        return view;
    }
    ShownNode& shown = found->second;
    if (shown.node != node) {
        shown.node = node;
        [shown.view showNode:node scale:_scale];
    }
    return shown.view;
}

- (void)announce {
    if (!_known)
        return;
    const AccessibleScene now = AccessibleScene::of(_scene);
    const AccessibleScene before = std::exchange(*_known, now);
    if (now.tiles != before.tiles) {
        NSAccessibilityPostNotification(self, NSAccessibilityLayoutChangedNotification);
        return;
    }
    const auto changed = now.changedSince(before);
    for (const ShownTile& tile : _tiles) {
        if (std::ranges::find(changed, tile.identifier) != changed.end())
            NSAccessibilityPostNotification(tile.element, NSAccessibilityValueChangedNotification);
    }
}

- (BOOL)isAccessibilityElement {
    return YES;
}

- (NSAccessibilityRole)accessibilityRole {
    return NSAccessibilityGroupRole;
}

- (NSArray*)accessibilityChildren {
    return attemptOr<NSArray*>(nil, "accessibilityChildren", [&] { return [self tileElements]; });
}

/// A tile keeps its element for as long as it stays in the strip.
- (NSArray*)tileElements {
    if (!_known)
        _known = AccessibleScene::of(_scene);
    NSMutableArray* const children = [NSMutableArray array];
    std::vector<ShownTile> tiles;
    if (const auto input = _input.lock()) {
        for (const AccessibleTile& tile : input->listener().accessibleTiles()) {
            tiles.push_back({tile.id, [self elementForTile:tile.id]});
            [children addObject:tiles.back().element];
        }
    }
    _tiles = std::move(tiles);
    return children;
}

- (VirelineTileElement*)elementForTile:(std::uint32_t)identifier {
    const auto known = std::ranges::find(_tiles, identifier, &ShownTile::identifier);
    return known == _tiles.end() ? [[VirelineTileElement alloc] initWithTile:identifier dock:self]
                                 : known->element;
}

- (id)accessibilityHitTest:(NSPoint)point {
    return attemptOr<id>(nil, "accessibilityHitTest", [&] { return [self elementAt:point]; });
}

- (id)elementAt:(NSPoint)point {
    const NSPoint inWindow = [self.window convertPointFromScreen:point];
    const auto at = toPoint([self convertPoint:inWindow fromView:nil]);
    for (VirelineTileElement* element in self.accessibilityChildren) {
        const auto tile = [self tile:element.tile];
        if (tile && tile->frame.contains(at))
            return element;
    }
    return self;
}

- (std::optional<AccessibleTile>)tile:(std::uint32_t)identifier {
    const auto input = _input.lock();
    if (!input)
        return std::nullopt;
    const auto tiles = input->listener().accessibleTiles();
    const auto found = std::ranges::find(tiles, identifier, &AccessibleTile::id);
    return found == tiles.end() ? std::nullopt : std::optional{*found};
}

- (void)pressTile:(std::uint32_t)identifier {
    if (const auto input = _input.lock())
        input->listener().pressTile(identifier);
}

- (void)showMenuOfTile:(std::uint32_t)identifier {
    if (const auto input = _input.lock())
        input->listener().showTileMenu(identifier);
}

@end
