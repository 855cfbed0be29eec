#include "Bridge/Menus.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#include <string>
#include <utility>
#include <variant>

/// The target of all items of one menu. The items keep it alive as their represented object, since
/// they reference their target weakly.
@interface VirelineMenuTarget : NSObject
- (instancetype)initWithFunction:(std::function<void(std::size_t)>)onChoose;
- (void)choose:(NSMenuItem*)item;
@end

@implementation VirelineMenuTarget {
    std::function<void(std::size_t)> _onChoose;
}

- (instancetype)initWithFunction:(std::function<void(std::size_t)>)onChoose {
    self = [super init];
    if (self != nil)
        _onChoose = std::move(onChoose);
    return self;
}

- (void)choose:(NSMenuItem*)item {
    // Copied, since the callback may destroy this object.
    const auto onChoose = _onChoose;
    const NSInteger tag =
        vireline::macos::attemptOr(NSInteger{-1}, "tag", [&] { return item.tag; });
    if (tag >= 0)
        onChoose(static_cast<std::size_t>(tag));
}

@end

namespace vireline::macos {
namespace {

std::string keyEquivalent(const MenuCommand& command) {
    return command.keyEquivalent == 0 ? std::string{} : std::string(1, command.keyEquivalent);
}

void update(NSMenuItem* item, const MenuCommand& command) {
    item.title = toNSString(command.title);
    item.state = command.isChecked.value_or(false) ? NSControlStateValueOn : NSControlStateValueOff;
}

NSMenuItem* makeItem(const MenuCommand& command, VirelineMenuTarget* target, std::size_t index) {
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(command.title)
                                                        action:@selector(choose:)
                                                 keyEquivalent:toNSString(keyEquivalent(command))];
    item.target = target;
    item.representedObject = target;
    item.tag = static_cast<NSInteger>(index);
    update(item, command);
    return item;
}

}

NSMenu* toNSMenu(const Menu& menu, std::function<void(std::size_t)> onChoose) {
    NSMenu* const made = [[NSMenu alloc] initWithTitle:@""];
    VirelineMenuTarget* const target =
        [[VirelineMenuTarget alloc] initWithFunction:std::move(onChoose)];
    for (std::size_t index = 0; index < menu.entries.size(); ++index) {
        const auto* const command = std::get_if<MenuCommand>(&menu.entries.at(index));
        [made addItem:command == nullptr ? [NSMenuItem separatorItem]
                                         : makeItem(*command, target, index)];
    }
    return made;
}

void update(NSMenu* shown, const Menu& menu) {
    for (std::size_t index = 0; index < menu.entries.size(); ++index) {
        NSMenuItem* const item = [shown itemWithTag:static_cast<NSInteger>(index)];
        const auto* const command = std::get_if<MenuCommand>(&menu.entries.at(index));
        if (item != nil && command != nullptr)
            update(item, *command);
    }
}

}
