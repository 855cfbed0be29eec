#include "Bridge/Menus.hpp"

#include "Bridge/Conversions.hpp"

#include <cstddef>
#include <string>
#include <utility>
#include <variant>

/// The target of an item, which keeps it alive as its represented object, since targets are
/// referenced weakly.
@interface VirelineMenuTarget : NSObject
- (instancetype)initWithFunction:(std::function<void()>)onChoose;
- (void)choose:(NSMenuItem*)item;
@end

@implementation VirelineMenuTarget {
    std::function<void()> _onChoose;
}

- (instancetype)initWithFunction:(std::function<void()>)onChoose {
    self = [super init];
    if (self != nil)
        _onChoose = std::move(onChoose);
    return self;
}

- (void)choose:(NSMenuItem*)item {
    // Copied, since the callback may destroy this object.
    const auto onChoose = _onChoose;
    onChoose();
}

@end

namespace vireline::macos {
namespace {

using Choose = std::function<void(const MenuAction&)>;

std::string keyEquivalent(const MenuCommand& command) {
    return command.keyEquivalent == 0 ? std::string{} : std::string(1, command.keyEquivalent);
}

void update(NSMenuItem* item, const MenuCommand& command) {
    item.title = toNSString(command.title);
    item.state = command.isChecked.value_or(false) ? NSControlStateValueOn : NSControlStateValueOff;
}

NSMenuItem* makeItem(const MenuCommand& command, const Choose& onChoose, std::size_t index) {
    VirelineMenuTarget* const target = [[VirelineMenuTarget alloc]
        initWithFunction:[onChoose, action = command.action] { onChoose(action); }];
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(command.title)
                                                        action:@selector(choose:)
                                                 keyEquivalent:toNSString(keyEquivalent(command))];
    item.target = target;
    item.representedObject = target;
    item.tag = static_cast<NSInteger>(index);
    update(item, command);
    return item;
}

NSMenuItem* makeItem(const MenuSubmenu& submenu, const Choose& onChoose) {
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(submenu.title)
                                                        action:nil
                                                 keyEquivalent:@""];
    item.tag = -1;
    NSMenu* const shown = [[NSMenu alloc] initWithTitle:toNSString(submenu.title)];
    for (std::size_t index = 0; index < submenu.entries.size(); ++index)
        [shown addItem:makeItem(submenu.entries.at(index), onChoose, index)];
    item.submenu = shown;
    return item;
}

}

NSMenu* toNSMenu(const Menu& menu, const Choose& onChoose) {
    NSMenu* const made = [[NSMenu alloc] initWithTitle:@""];
    for (std::size_t index = 0; index < menu.entries.size(); ++index) {
        const MenuItem& entry = menu.entries.at(index);
        if (const auto* const command = std::get_if<MenuCommand>(&entry))
            [made addItem:makeItem(*command, onChoose, index)];
        else if (const auto* const submenu = std::get_if<MenuSubmenu>(&entry))
            [made addItem:makeItem(*submenu, onChoose)];
        else
            [made addItem:[NSMenuItem separatorItem]];
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
