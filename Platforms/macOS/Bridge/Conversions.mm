#include "Bridge/Conversions.hpp"

#import <CoreFoundation/CoreFoundation.h>

namespace vireline::macos {
namespace {

/// Limits the recursion. The values that the program uses are at most five levels deep.
constexpr int maximumDepth = 64;

PropertyList toPropertyList(id _Nullable value, int depth);

bool isBoolean(NSNumber* number) {
    return CFGetTypeID((__bridge CFNumberRef)number) == CFBooleanGetTypeID();
}

bool isFraction(NSNumber* number) {
    return CFNumberIsFloatType((__bridge CFNumberRef)number) != 0;
}

PropertyList fromNumber(NSNumber* number) {
    if (isBoolean(number))
        return PropertyList{static_cast<bool>(number.boolValue)};
    if (isFraction(number))
        return PropertyList{number.doubleValue};
    return PropertyList{std::int64_t{number.longLongValue}};
}

PropertyList fromData(NSData* data) {
    const auto* bytes = static_cast<const std::byte*>(data.bytes);
    return PropertyList{bytes == nullptr ? PropertyList::Data{}
                                         : PropertyList::Data(bytes, bytes + data.length)};
}

PropertyList fromArray(NSArray* array, int depth) {
    PropertyList::Array items;
    items.reserve(array.count);
    for (id item in array)
        items.push_back(toPropertyList(item, depth + 1));
    return PropertyList{std::move(items)};
}

PropertyList fromDictionary(NSDictionary* dictionary, int depth) {
    PropertyList::Dictionary entries;
    for (id key in dictionary) {
        if ([key isKindOfClass:NSString.class])
            entries.insert_or_assign(toText(key), toPropertyList(dictionary[key], depth + 1));
    }
    return PropertyList{std::move(entries)};
}

PropertyList toPropertyList(id value, int depth) {
    if (depth > maximumDepth)
        return PropertyList{};
    if ([value isKindOfClass:NSString.class])
        return PropertyList{toText(value)};
    if ([value isKindOfClass:NSNumber.class])
        return fromNumber(value);
    if ([value isKindOfClass:NSData.class])
        return fromData(value);
    if ([value isKindOfClass:NSArray.class])
        return fromArray(value, depth);
    if ([value isKindOfClass:NSDictionary.class])
        return fromDictionary(value, depth);
    return PropertyList{};
}

}

NSString* toNSString(std::string_view text) {
    NSString* made = [[NSString alloc] initWithBytes:text.data()
                                              length:text.size()
                                            encoding:NSUTF8StringEncoding];
    if (made == nil)
        made = [[NSString alloc] initWithBytes:text.data()
                                        length:text.size()
                                      encoding:NSISOLatin1StringEncoding];
    return made == nil ? @"" : made;
}

std::string toText(NSString* text) {
    const char* const bytes = text.UTF8String;
    if (bytes == nullptr)
        return {};
    return {bytes, [text lengthOfBytesUsingEncoding:NSUTF8StringEncoding]};
}

std::optional<std::string> toOptionalText(NSString* text) {
    if (text == nil)
        return std::nullopt;
    return toText(text);
}

NSURL* toNSURL(const FileURL& url) {
    return [NSURL fileURLWithPath:toNSString(url.path())];
}

std::optional<FileURL> toFileURL(NSURL* url) {
    if (!url.isFileURL)
        return std::nullopt;
    const std::string path = toText(url.path);
    if (!path.starts_with('/'))
        return std::nullopt;
    return FileURL::fromPath(path);
}

std::optional<long long> toWholeNumber(id value) {
    if (![value isKindOfClass:NSNumber.class] || isBoolean(value) || isFraction(value))
        return std::nullopt;
    return [value longLongValue];
}

PlatformError toPlatformError(NSError* error) {
    if (error == nil)
        return {0, "unknown error"};
    return {static_cast<int>(error.code), toText(error.localizedDescription)};
}

PlatformError toPlatformError(int errorNumber) {
    return toPlatformError([NSError errorWithDomain:NSPOSIXErrorDomain
                                               code:errorNumber
                                           userInfo:nil]);
}

PropertyList toPropertyList(id value) {
    return toPropertyList(value, 0);
}

}
