#include "Bridge/Menus.hpp"

#include "Bridge/Conversions.hpp"

#include <utility>
#include <variant>

@interface VirelineMenuTarget ()
- (void)chose:(id)sender;
@end

@implementation VirelineMenuTarget {
    std::function<void(std::size_t)> _onChosen;
}

- (instancetype)initWithFunction:(std::function<void(std::size_t)>)onChosen {
    self = [super init];
    if (self != nil)
        _onChosen = std::move(onChosen);
    return self;
}

- (void)chose:(id)sender {
    if (![sender isKindOfClass:NSMenuItem.class])
        return;
    const NSInteger index = static_cast<NSMenuItem*>(sender).tag;
    if (index >= 0)
        _onChosen(static_cast<std::size_t>(index));
}

@end

namespace vireline::macos {
namespace {

NSMenuItem* makeItem(const MenuItem& entry, VirelineMenuTarget* target) {
    const auto* const command = std::get_if<MenuCommand>(&entry);
    if (command == nullptr)
        return [NSMenuItem separatorItem];
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(command->title)
                                                        action:@selector(chose:)
                                                 keyEquivalent:@""];
    item.target = target;
    return item;
}

}

NSMenu* makeMenu(const Menu& menu, VirelineMenuTarget* target) {
    NSMenu* const made = [[NSMenu alloc] initWithTitle:@""];
    made.autoenablesItems = NO;
    NSInteger index = 0;
    for (const MenuItem& entry : menu.entries) {
        NSMenuItem* const item = makeItem(entry, target);
        item.tag = index++;
        [made addItem:item];
    }
    return made;
}

}
