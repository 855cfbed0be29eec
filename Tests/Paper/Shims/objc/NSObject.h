// The root class as Clang and the frameworks' declarations need it.
#pragma once
#include <objc/objc.h>
struct _NSZone;
@class NSString, NSMethodSignature, NSInvocation;
@protocol NSObject
- (BOOL)isEqual:(id)object;
@property (readonly) NSUInteger hash;
@property (readonly) Class superclass;
- (Class)class;
- (instancetype)self;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)isMemberOfClass:(Class)aClass;
- (BOOL)conformsToProtocol:(Protocol*)aProtocol;
- (BOOL)respondsToSelector:(SEL)aSelector;
#if !__has_feature(objc_arc)
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
- (NSUInteger)retainCount;
#endif
@property (readonly, copy) NSString* description;
@end
__attribute__((objc_root_class))
@interface NSObject <NSObject> {
    Class isa;
}
+ (instancetype)new;
+ (instancetype)alloc;
+ (Class)class;
+ (Class)superclass;
+ (BOOL)isSubclassOfClass:(Class)aClass;
+ (BOOL)instancesRespondToSelector:(SEL)aSelector;
- (instancetype)init
#if __has_attribute(objc_designated_initializer)
    __attribute__((objc_designated_initializer))
#endif
    ;
- (void)dealloc;
- (id)copy;
@end
