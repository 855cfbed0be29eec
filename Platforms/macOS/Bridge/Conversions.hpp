/// Between Foundation's types and the kit's. What the system hands in may be nil, lack keys or be
/// of another type than documented; that is met here and goes no further.
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

/// Text that is no UTF-8 is read as Latin-1 rather than lost.
[[nodiscard]] NSString* _Nonnull toNSString(std::string_view text);
/// Empty for nil.
[[nodiscard]] std::string toText(NSString* _Nullable text);
[[nodiscard]] std::optional<std::string> toOptionalText(NSString* _Nullable text);

[[nodiscard]] NSURL* _Nonnull toNSURL(const FileURL& url);
/// Nothing for nil and for what is no file.
[[nodiscard]] std::optional<FileURL> toFileURL(NSURL* _Nullable url);

/// Nothing for nil, for what is no number, and for a number that is a fraction or a truth value.
[[nodiscard]] std::optional<long long> toWholeNumber(id _Nullable value);

[[nodiscard]] PlatformError toPlatformError(NSError* _Nullable error);
/// The failure of a system call, described by the system in the user's language.
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

/// Dates, keys that are no strings and whatever lies deeper than any list that is read become
/// values of no kind or are left out.
[[nodiscard]] PropertyList toPropertyList(id _Nullable value);

}
