// Core Foundation's side of the bridge: on paper all of its objects are Objective-C objects.
#include "Cocoa/CoreObjects.hpp"
#include "Cocoa/Paper.hpp"

namespace {

__strong id& persistentApps() {
    static __strong id list = nil;
    return list;
}

}

extern "C" {

void* objc_retain(void* object);
void objc_release(void* object);

CFTypeRef CFRetain(CFTypeRef object) {
    return objc_retain(const_cast<void*>(object));
}

void CFRelease(CFTypeRef object) {
    objc_release(const_cast<void*>(object));
}

// Belief: only the distinctness of type IDs matters, not their values.
CFTypeID CFGetTypeID(CFTypeRef reference) {
    const id object = (__bridge id)reference;
    if ([object isKindOfClass:NSNumber.class])
        return [static_cast<NSNumber*>(object) paperIsBoolean] ? paper::booleanType
                                                               : paper::numberType;
    if ([object isKindOfClass:NSArray.class])
        return paper::arrayType;
    if ([object isKindOfClass:PaperElement.class])
        return paper::elementType;
    if ([object isKindOfClass:PaperBox.class])
        return paper::boxType;
    return paper::otherType;
}

CFTypeID CFArrayGetTypeID(void) {
    return paper::arrayType;
}

CFIndex CFArrayGetCount(CFArrayRef array) {
    return static_cast<CFIndex>([(__bridge NSArray*)array count]);
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    return (__bridge const void*)((__bridge NSArray*)array)[static_cast<NSUInteger>(index)];
}

CFTypeID CFBooleanGetTypeID(void) {
    return paper::booleanType;
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
    return [(__bridge NSNumber*)number paperIsReal];
}

// Documented: null for an unset key.
CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef) {
    const bool isList = [(__bridge NSString*)key paperText] == "persistent-apps";
    return (__bridge_retained CFTypeRef)(isList ? persistentApps() : nil);
}

Boolean CFPreferencesAppSynchronize(CFStringRef) {
    return 1;
}
}

namespace paper {

void setPersistentApps(id list) {
    persistentApps() = list;
}

NSDictionary* dockTile(const App& app) {
    return @{
        @"tile-type" : @"file-tile",
        @"tile-data" : @{
            @"bundle-identifier" : text(app.bundleID),
            @"file-label" : text(app.name),
            @"file-data" : @{
                @"_CFURLString" : [NSURL fileURLWithPath:text(app.path)].absoluteString,
                @"_CFURLStringType" : [NSNumber numberWithInt:15]
            }
        }
    };
}

}
