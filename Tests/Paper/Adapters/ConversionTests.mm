// Conversions between Foundation's types and the kit's, for any value that the system may pass.
#include "Bridge/Conversions.hpp"
#include "Cocoa/Paper.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>

namespace vireline::macos {
namespace {

TEST(PropertyListsFromTheSystem, KeepTheKindOfEachValue) {
    @autoreleasepool {
        const std::string bytes{"\x01\x02", 2};
        NSDictionary* const list = @{
            @"truth" : @YES,
            @"whole" : [NSNumber numberWithLongLong:-7],
            @"fraction" : [NSNumber numberWithDouble:2.5],
            @"text" : @"a longer text",
            @"bytes" : [NSData dataWithBytes:bytes.data() length:bytes.size()],
            @"nothing" : [NSData dataWithBytes:nullptr length:0],
            @"list" : @[ @"one", @[] ],
            @"url" : [NSURL fileURLWithPath:@"/tmp"]
        };
        const PropertyList expected{PropertyList::Dictionary{
            {"truth", PropertyList{true}},
            {"whole", PropertyList{std::int64_t{-7}}},
            {"fraction", PropertyList{2.5}},
            {"text", PropertyList{"a longer text"}},
            {"bytes", PropertyList{PropertyList::Data{std::byte{1}, std::byte{2}}}},
            {"nothing", PropertyList{PropertyList::Data{}}},
            {"list", PropertyList{PropertyList::Array{PropertyList{"one"},
                                                      PropertyList{PropertyList::Array{}}}}},
            {"url", PropertyList{}}}};
        EXPECT_TRUE(toPropertyList(list) == expected);
    }
}

TEST(PropertyListsFromTheSystem, LeaveOutKeysThatAreNoText) {
    @autoreleasepool {
        NSDictionary* const list = @{@"a longer key" : @YES, @7 : @YES};
        const PropertyList expected{PropertyList::Dictionary{{"a longer key", PropertyList{true}}}};
        EXPECT_TRUE(toPropertyList(list) == expected);
        EXPECT_TRUE(toPropertyList(nil) == PropertyList{});
    }
}

TEST(PropertyListsFromTheSystem, EndAtTheGreatestDepth) {
    @autoreleasepool {
        NSArray* nested = @[ @"innermost" ];
        for (int depth = 0; depth < 80; ++depth)
            nested = @[ nested ];
        int depth = 0;
        const PropertyList made = toPropertyList(nested);
        const PropertyList* at = &made;
        for (; at->array() != nullptr && !at->array()->empty(); ++depth)
            at = &at->array()->front();
        EXPECT_EQ(depth, 65);
        EXPECT_TRUE(*at == PropertyList{});
    }
}

TEST(TextsForTheSystem, SurviveBytesThatAreNoUTF8) {
    @autoreleasepool {
        EXPECT_EQ(toText(toNSString("caf\xC3\xA9")), "caf\xC3\xA9");
        EXPECT_EQ(toText(toNSString("caf\xE9")), "caf\xC3\xA9");
        EXPECT_EQ(toText(toNSString("")), "");
        EXPECT_EQ(toText(nil), "");
        EXPECT_EQ(toOptionalText(nil), std::nullopt);
        EXPECT_EQ(toOptionalText(@""), "");
    }
}

TEST(FileURLsFromTheSystem, AreEmptyForOtherURLs) {
    @autoreleasepool {
        EXPECT_EQ(toFileURL(nil), std::nullopt);
        EXPECT_EQ(toFileURL([NSURL URLWithString:@"https://example.org/app"]), std::nullopt);
        EXPECT_EQ(toFileURL([NSURL URLWithString:@"file://relative"]), std::nullopt);
        EXPECT_EQ(toFileURL([NSURL fileURLWithPath:@"/Applications/Notes.app"]),
                  FileURL::fromPath("/Applications/Notes.app"));
        EXPECT_EQ(toText(toNSURL(FileURL::fromPath("/tmp/a b")).path), "/tmp/a b");
    }
}

TEST(WholeNumbersFromTheSystem, AreNothingForOtherValues) {
    @autoreleasepool {
        EXPECT_EQ(toWholeNumber([NSNumber numberWithLongLong:41]), 41);
        EXPECT_EQ(toWholeNumber(@YES), std::nullopt);
        EXPECT_EQ(toWholeNumber([NSNumber numberWithDouble:1.5]), std::nullopt);
        EXPECT_EQ(toWholeNumber(@"41"), std::nullopt);
        EXPECT_EQ(toWholeNumber(nil), std::nullopt);
    }
}

TEST(ErrorsFromTheSystem, AreDescribed) {
    @autoreleasepool {
        EXPECT_EQ(toPlatformError(nil).code, 0);
        EXPECT_EQ(toPlatformError(nil).description, "unknown error");
        EXPECT_EQ(toPlatformError(ENOENT).code, ENOENT);
        EXPECT_EQ(toPlatformError(ENOENT).description, "No such file or directory");
    }
}

}
}
