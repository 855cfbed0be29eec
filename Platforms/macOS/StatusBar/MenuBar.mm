#include "StatusBar/MenuBar.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Menus.hpp"
#include "Foundation/DevLog.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"

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
    _onOpening();
}

@end

namespace vireline::macos {
namespace {

class MenuBarItem final : public StatusItem, private NonCopyable {
public:
    MenuBarItem() {
        attempt("statusItemWithLength", [this] {
            item_ = [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength];
        });
    }
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

    void setMenu(std::function<Menu()> menu) override {
        menu_ = std::move(menu);
        attempt("status item's menu", [this] {
            NSMenu* const shown = toNSMenu(menu_(), lifetime_.guard([](const MenuAction& chosen) {
                if (chosen)
                    chosen();
            }));
            watch_ = [[VirelineMenuWatch alloc]
                initWithFunction:lifetime_.guard([this] { updateMenu(); })];
            shown.delegate = watch_;
            item_.menu = shown;
        });
    }

    [[nodiscard]] bool hasPlace() const override { return item_ != nil; }

private:
    void updateMenu() {
        attempt("menuNeedsUpdate", [this] {
            if (NSMenu* const shown = item_.menu; shown != nil)
                update(shown, menu_());
        });
    }

    NSStatusItem* item_ = nil;
    std::function<Menu()> menu_;
    VirelineMenuWatch* watch_ = nil;
    Lifetime lifetime_;
};

}

std::unique_ptr<StatusItem> MenuBar::makeStatusItem() {
    return std::make_unique<MenuBarItem>();
}

}
