// Notification centres.
#include "Cocoa/Paper.hpp"

#include <algorithm>

// Documented: what stands for a block's observer is opaque, and handed back to remove it.
@interface PaperObserver : NSObject
@property(copy) NSString* name;
@property(copy) void (^block)(NSNotification*);
@property(unsafe_unretained) id target;
@property SEL selector;
@end

@implementation PaperObserver
@end

// Documented: carries a name, its sender and the user info, of which the program reads the last.
@implementation NSNotification

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: the main queue runs its operations on the main thread.
@implementation NSOperationQueue

+ (NSOperationQueue*)mainQueue {
    static NSOperationQueue* const queue = [[NSOperationQueue alloc] init];
    return queue;
}

@end

// Documented: the centre retains a block's observer until it is removed; a notification posted on
// the main thread reaches a block on the main queue before the post returns; an observer that
// another one has removed is no longer called.
@implementation NSNotificationCenter {
@public
    std::vector<PaperObserver*> _observers;
}

+ (NSNotificationCenter*)defaultCenter {
    static NSNotificationCenter* const center = [[NSNotificationCenter alloc] init];
    return center;
}

- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block {
    static_cast<void>(object);
    static_cast<void>(queue);
    PaperObserver* const observer = [[PaperObserver alloc] init];
    observer.name = name;
    observer.block = block;
    _observers.push_back(observer);
    return observer;
}

- (void)removeObserver:(id)observer {
    std::erase_if(_observers, [&](PaperObserver* known) {
        return known == observer || (known.target != nil && known.target == observer);
    });
}

- (void)paperPost:(NSNotificationName)name userInfo:(NSDictionary*)userInfo {
    NSNotification* const notification = [[NSNotification alloc] init];
    notification.userInfo = userInfo;
    const auto observers = _observers;
    for (PaperObserver* const observer : observers) {
        const bool isThere = std::ranges::find(_observers, observer) != _observers.end();
        if (!isThere || (observer.name != nil && ![observer.name isEqual:name]))
            continue;
        paper::guarded("notification " + name.paperText, [&] {
            if (observer.block != nil)
                observer.block(notification);
            else
                paper::send(observer.target, observer.selector, notification);
        });
    }
}

- (NSUInteger)paperObservers {
    return _observers.size();
}

@end

// Documented: an observer is neither retained nor removed automatically. Delivery is immediate even
// if the program is inactive, as the suspension behaviour requests.
@implementation NSDistributedNotificationCenter

+ (NSDistributedNotificationCenter*)defaultCenter {
    static NSDistributedNotificationCenter* const center =
        [[NSDistributedNotificationCenter alloc] init];
    return center;
}

- (void)addObserver:(id)target
              selector:(SEL)selector
                  name:(NSNotificationName)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior {
    static_cast<void>(object);
    static_cast<void>(behavior);
    PaperObserver* const observer = [[PaperObserver alloc] init];
    observer.name = name;
    observer.target = target;
    observer.selector = selector;
    _observers.push_back(observer);
}

@end
