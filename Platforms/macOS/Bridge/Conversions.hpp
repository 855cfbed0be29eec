/// Converts between the system's types and the kit's. Values from the system may be nil, lack keys
/// or have undocumented types; all of that is handled here.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Geometry.hpp"
#include "Foundation/PropertyList.hpp"
#include "Foundation/Result.hpp"

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vireline::macos {

/// Text that is not valid UTF-8 is interpreted as Latin-1.
[[nodiscard]] NSString* _Nonnull toNSString(std::string_view text);
/// Empty for nil.
[[nodiscard]] std::string toText(NSString* _Nullable text);
[[nodiscard]] std::optional<std::string> toOptionalText(NSString* _Nullable text);

[[nodiscard]] NSURL* _Nonnull toNSURL(const FileURL& url);
/// nullopt for nil and for URLs that are not file URLs.
[[nodiscard]] std::optional<FileURL> toFileURL(NSURL* _Nullable url);

/// nullopt for nil, and for objects that are not integers: other types, fractions and booleans.
[[nodiscard]] std::optional<long long> toWholeNumber(id _Nullable value);

[[nodiscard]] PlatformError toPlatformError(NSError* _Nullable error);
/// The error of a system call, with the system's description in the user's language.
[[nodiscard]] PlatformError toPlatformError(int errorNumber);

[[nodiscard]] constexpr CGPoint toCGPoint(Point point) {
    return {point.x, point.y};
}
[[nodiscard]] constexpr Point toPoint(CGPoint point) {
    return {point.x, point.y};
}
[[nodiscard]] constexpr CGSize toCGSize(Size size) {
    return {size.width, size.height};
}
[[nodiscard]] constexpr Size toSize(CGSize size) {
    return {size.width, size.height};
}
[[nodiscard]] constexpr CGRect toCGRect(const Rect& rect) {
    return {{rect.x, rect.y}, {rect.width, rect.height}};
}
[[nodiscard]] constexpr Rect toRect(CGRect rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

/// Types that `PropertyList` lacks, and values that are nested too deeply, become empty values.
/// Entries whose keys are not strings are omitted.
[[nodiscard]] PropertyList toPropertyList(id _Nullable value);

}
