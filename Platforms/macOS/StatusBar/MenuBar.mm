#include "StatusBar/MenuBar.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Menus.hpp"
#include "Foundation/DevLog.hpp"
#include "Foundation/Lifetime.hpp"

#import <AppKit/AppKit.h>

#include <utility>

/// Reports when a menu is about to open.
@interface VirelineMenuWatch : NSObject <NSMenuDelegate>
- (instancetype)initWithFunction:(std::function<void()>)onOpening;
@end

@implementation VirelineMenuWatch {
    std::function<void()> _onOpening;
}

- (instancetype)initWithFunction:(std::function<void()>)onOpening {
    self = [super init];
    if (self != nil)
        _onOpening = std::move(onOpening);
    return self;
}

- (void)menuNeedsUpdate:(NSMenu*)menu {
    static_cast<void>(menu);
    _onOpening();
}

@end

namespace vireline::macos {
namespace {

class MenuBarItem final : public StatusItem {
public:
    explicit MenuBarItem(StatusItemListener& listener) : listener_(listener) {
        attempt("statusItemWithLength", [this] {
            item_ = [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength];
        });
    }
    MenuBarItem(const MenuBarItem&) = delete;
    MenuBarItem& operator=(const MenuBarItem&) = delete;
    MenuBarItem(MenuBarItem&&) = delete;
    MenuBarItem& operator=(MenuBarItem&&) = delete;
    ~MenuBarItem() override {
        if (NSStatusItem* const item = item_; item != nil)
            attempt("removeStatusItem",
                    [&] { [NSStatusBar.systemStatusBar removeStatusItem:item]; });
    }

    void setImage(const std::string& symbol, const std::string& accessibilityDescription) override {
        attempt("status item's image", [&] {
            NSStatusBarButton* const button = item_.button;
            if (button == nil)
                DevLog::write("no status item: the menu bar refused it");
            button.image = [NSImage imageWithSystemSymbolName:toNSString(symbol)
                                     accessibilityDescription:toNSString(accessibilityDescription)];
        });
    }

    void setMenu(const Menu& menu) override {
        menu_ = menu;
        attempt("status item's menu", [this] {
            // The callbacks of menu and delegate do nothing once the item is gone, so they never
            // outlive the listener.
            NSMenu* const shown = toNSMenu(
                menu_, lifetime_.guard([this](std::size_t i) { listener_.menuItemChosen(i); }));
            watch_ = [[VirelineMenuWatch alloc]
                initWithFunction:lifetime_.guard([this] { updateMenu(); })];
            shown.delegate = watch_;
            item_.menu = shown;
        });
    }

    [[nodiscard]] bool hasPlace() const override { return item_ != nil; }

private:
    void updateMenu() {
        listener_.menuNeedsUpdate(menu_);
        attempt("menuNeedsUpdate", [this] {
            if (NSMenu* const shown = item_.menu; shown != nil)
                update(shown, menu_);
        });
    }

    StatusItemListener& listener_;
    NSStatusItem* item_ = nil;
    Menu menu_;
    VirelineMenuWatch* watch_ = nil;
    Lifetime lifetime_;
};

}

std::unique_ptr<StatusItem> MenuBar::makeStatusItem(StatusItemListener& listener) {
    return std::make_unique<MenuBarItem>(listener);
}

}
