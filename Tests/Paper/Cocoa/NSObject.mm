// The root class, and what the runtime needs from the classes above it. Compiled without ARC,
// because it implements what ARC calls.
#include "Runtime/Runtime.hpp"

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

using namespace paper;

extern "C" {
id objc_retain(id object);
void objc_release(id object);
id objc_autorelease(id object);
}

namespace {

rt::Class* classOf(id object) {
    return rt::classOf(reinterpret_cast<rt::Object*>(object));
}

rt::Class* asClass(Class klass) {
    return reinterpret_cast<rt::Class*>(klass);
}

Class asClass(rt::Class* klass) {
    return reinterpret_cast<Class>(klass);
}

const char* nameOf(SEL selector) {
    return reinterpret_cast<rt::Selector*>(selector)->name;
}

bool answers(rt::Class* klass, SEL selector) {
    return rt::implementation(klass, nameOf(selector)) != nullptr;
}

const char* nameOf(Protocol* protocol) {
    return reinterpret_cast<rt::Protocol*>(protocol)->name;
}

}

// Documented: all of it.
@implementation NSObject

+ (instancetype)alloc {
    return reinterpret_cast<id>(rt::allocate(asClass(self)));
}

+ (instancetype)new {
    return [[self alloc] init];
}

+ (Class)class {
    return self;
}

+ (Class)superclass {
    return asClass(asClass(self)->superclass);
}

+ (BOOL)isSubclassOfClass:(Class)other {
    return rt::isKind(asClass(self), asClass(other));
}

+ (BOOL)instancesRespondToSelector:(SEL)selector {
    return answers(asClass(self), selector);
}

+ (BOOL)conformsToProtocol:(Protocol*)protocol {
    return rt::conforms(asClass(self), nameOf(protocol));
}

+ (BOOL)respondsToSelector:(SEL)selector {
    return answers(asClass(self)->isa, selector);
}

- (instancetype)init {
    return self;
}

- (instancetype)self {
    return self;
}

- (void)dealloc {
    rt::dispose(reinterpret_cast<rt::Object*>(self));
}

- (instancetype)retain {
    return objc_retain(self);
}

- (oneway void)release {
    objc_release(self);
}

- (instancetype)autorelease {
    return objc_autorelease(self);
}

- (Class)class {
    return asClass(classOf(self));
}

- (Class)superclass {
    return asClass(classOf(self)->superclass);
}

- (BOOL)isKindOfClass:(Class)other {
    return rt::isKind(classOf(self), asClass(other));
}

- (BOOL)isMemberOfClass:(Class)other {
    return classOf(self) == asClass(other);
}

- (BOOL)conformsToProtocol:(Protocol*)protocol {
    return rt::conforms(classOf(self), nameOf(protocol));
}

- (BOOL)respondsToSelector:(SEL)selector {
    return answers(classOf(self), selector);
}

- (BOOL)isEqual:(id)other {
    return self == other;
}

- (NSUInteger)hash {
    return reinterpret_cast<NSUInteger>(self);
}

- (NSString*)description {
    const std::string name = classOf(self)->name;
    return [[[NSString alloc] initWithBytes:name.data()
                                     length:name.size()
                                   encoding:NSUTF8StringEncoding] autorelease];
}

- (id)copy {
    return [(id<NSCopying>)self copyWithZone:nullptr];
}

@end

// Documented, by Clang: a block is an object. What a block captures is in Runtime/Blocks.cpp.
@interface PaperBlock : NSObject
@end

@implementation PaperBlock
@end

namespace paper {

void send(id receiver, SEL selector, id argument) {
    const rt::Slot* const slot = rt::implementation(classOf(receiver), nameOf(selector));
    if (slot == nullptr)
        return rt::noteUnanswered(std::string{"-["} + classOf(receiver)->name + " " +
                                  nameOf(selector) + "]");
    reinterpret_cast<void (*)(id, SEL, id)>(slot->code)(receiver, selector, argument);
}

}

SEL NSSelectorFromString(NSString* name) {
    return reinterpret_cast<SEL>(rt::selectorNamed(name.UTF8String));
}

extern "C" bool paper_hasVersion(const char* asked);

Class NSClassFromString(NSString* name) {
    // NSGlassEffectView exists since version 26.
    if (std::string_view{name.UTF8String} == "NSGlassEffectView" && !paper_hasVersion("macOS 26"))
        return nil;
    return asClass(rt::classNamed(name.UTF8String));
}
