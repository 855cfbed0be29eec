// Menus and status items.
#include "Cocoa/Paper.hpp"

#include <algorithm>

namespace {

std::function<NSMenuItem*(NSMenu*)>& menuAnswer() {
    static auto& answer = *new std::function<NSMenuItem*(NSMenu*)>;
    return answer;
}

}

// Documented: the target is not retained, representedObject is.
@implementation NSMenuItem

- (instancetype)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key {
    self = [super init];
    self.title = title;
    self.paperAction = action;
    self.paperKeyEquivalent = key;
    return self;
}

+ (NSMenuItem*)separatorItem {
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:@""
                                                        action:nullptr
                                                 keyEquivalent:@""];
    item.paperIsSeparator = YES;
    return item;
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: popUp… tracks in a loop of its own and returns when the menu is closed; an item's
// target and a menu's delegate are not retained; without a target the action goes to the first
// responder, and finally to the application. Belief: the action is sent before popUp… returns, and
// never after the tracking was cancelled.
@implementation NSMenu {
    std::vector<NSMenuItem*> _items;
    BOOL _isTracking;
}

- (instancetype)initWithTitle:(NSString*)title {
    static_cast<void>(title);
    return [super init];
}

- (void)addItem:(NSMenuItem*)item {
    _items.push_back(item);
}

- (NSMenuItem*)itemWithTag:(NSInteger)tag {
    const auto found =
        std::ranges::find_if(_items, [&](NSMenuItem* item) { return item.tag == tag; });
    return found == _items.end() ? nil : *found;
}

- (NSArray*)paperItems {
    return [NSArray arrayWithObjects:_items.data() count:_items.size()];
}

- (void)paperUpdate {
    if ([self.delegate respondsToSelector:@selector(menuNeedsUpdate:)])
        paper::guarded("menuNeedsUpdate", [&] { [self.delegate menuNeedsUpdate:self]; });
}

- (void)paperChoose:(NSMenuItem*)item {
    const id target =
        item.target == nil ? static_cast<id>(NSApplication.sharedApplication) : item.target;
    if (item.paperAction != nullptr)
        paper::guarded("menu item", [&] { paper::send(target, item.paperAction, item); });
}

- (BOOL)paperIsTracking {
    return _isTracking;
}

- (NSSize)size {
    constexpr double width = 160;
    constexpr double itemHeight = 22;
    return {width, itemHeight * static_cast<double>(_items.size())};
}

- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item
                      atLocation:(NSPoint)location
                          inView:(NSView*)view {
    static_cast<void>(item);
    static_cast<void>(location);
    static_cast<void>(view);
    _isTracking = YES;
    [self paperUpdate];
    NSMenuItem* const chosen = menuAnswer() ? menuAnswer()(self) : nil;
    const BOOL wasTracking = _isTracking;
    _isTracking = NO;
    if (wasTracking && chosen != nil)
        [self paperChoose:chosen];
    return chosen != nil;
}

- (void)cancelTrackingWithoutAnimation {
    _isTracking = NO;
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: has a button from the start. Belief: the bar never refuses an item; a crowded bar
// hides it instead.
@implementation NSStatusItem
@end

// Documented: the bar retains its items until they are removed.
@implementation NSStatusBar

+ (NSStatusBar*)systemStatusBar {
    static NSStatusBar* const bar = [[NSStatusBar alloc] init];
    return bar;
}

- (NSStatusItem*)statusItemWithLength:(CGFloat)length {
    static_cast<void>(length);
    NSStatusItem* const item = [[NSStatusItem alloc] init];
    item.button = [[NSStatusBarButton alloc] initWithFrame:NSZeroRect];
    paper::statusItems().push_back(item);
    return item;
}

- (void)removeStatusItem:(NSStatusItem*)item {
    std::erase(paper::statusItems(), item);
}

@end

namespace paper {

std::vector<NSStatusItem*>& statusItems() {
    static auto& all = *new std::vector<NSStatusItem*>;
    return all;
}

void answerMenus(std::function<NSMenuItem*(NSMenu*)> answer) {
    menuAnswer() = std::move(answer);
}

NSMenuItem* itemTitled(NSMenu* menu, const std::string& title) {
    for (NSMenuItem* item in [menu paperItems])
        if (item.title.paperText == title)
            return item;
    return nil;
}

bool chooseStatusItem(const std::string& title) {
    @autoreleasepool {
        if (statusItems().empty())
            return false;
        NSMenu* const menu = statusItems().front().menu;
        [menu paperUpdate];
        NSMenuItem* const item = itemTitled(menu, title);
        if (item == nil)
            return false;
        [menu paperChoose:item];
        drain();
        return true;
    }
}

}
