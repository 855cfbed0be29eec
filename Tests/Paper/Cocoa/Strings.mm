// Strings as UTF-8, and the three kinds of constants that the compiler emits for literals.
#include "Cocoa/Extensions.hpp"

#include <map>
#include <mutex>
#include <optional>

namespace {

void append(std::string& text, unsigned code) {
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((code >> shift) & 63U));
    };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string fromUTF16(const char16_t* units, std::size_t count) {
    std::string text;
    for (std::size_t index = 0; index < count; ++index) {
        unsigned code = units[index];
        if (code >= 0xD800 && code < 0xDC00 && index + 1 < count)
            code = 0x10000 + ((code - 0xD800) << 10U) + (units[++index] - 0xDC00U);
        append(text, code);
    }
    return text;
}

/// The number of bytes that follow a lead byte; nullopt if it is not a lead byte.
std::optional<std::size_t> tailLength(unsigned char lead) {
    if (lead < 0x80)
        return 0;
    if (lead >= 0xC2 && lead < 0xE0)
        return 1;
    if (lead >= 0xE0 && lead < 0xF0)
        return 2;
    if (lead >= 0xF0 && lead < 0xF5)
        return 3;
    return std::nullopt;
}

/// Rejects overlong encodings, surrogates, and values beyond the last code point.
bool isAllowed(unsigned char lead, unsigned char second) {
    return !(lead == 0xE0 && second < 0xA0) && !(lead == 0xED && second >= 0xA0) &&
           !(lead == 0xF0 && second < 0x90) && !(lead == 0xF4 && second >= 0x90);
}

bool isUTF8(const unsigned char* bytes, std::size_t count) {
    for (std::size_t index = 0; index < count; ++index) {
        const unsigned char lead = bytes[index];
        const auto tail = tailLength(lead);
        if (!tail || index + *tail >= count)
            return false;
        if (*tail != 0 && !isAllowed(lead, bytes[index + 1]))
            return false;
        for (std::size_t left = *tail; left != 0; --left)
            if ((bytes[++index] & 0xC0U) != 0x80)
                return false;
    }
    return true;
}

/// The text of a constant, created on first use and kept.
const std::string& kept(const void* constant, std::string (*make)(const void*)) {
    static auto& guard = *new std::mutex;
    static auto& texts = *new std::map<const void*, std::string>;
    const std::lock_guard hold{guard};
    auto found = texts.find(constant);
    if (found == texts.end())
        found = texts.emplace(constant, make(constant)).first;
    return found->second;
}

}

// Documented: initWithBytes: returns nil for invalid bytes; strings are compared by content.
@implementation NSString {
    std::string _text;
}

- (instancetype)initWithBytes:(const void*)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding {
    const auto* const first = static_cast<const unsigned char*>(bytes);
    if (encoding == NSUTF8StringEncoding && !isUTF8(first, length))
        return nil;
    self = [super init];
    if (encoding == NSUTF8StringEncoding)
        _text.assign(first, first + length);
    else
        for (NSUInteger index = 0; index < length; ++index)
            append(_text, first[index]);
    return self;
}

- (const std::string&)paperText {
    return _text;
}

- (const char*)UTF8String {
    return self.paperText.c_str();
}

- (NSUInteger)lengthOfBytesUsingEncoding:(NSStringEncoding)encoding {
    static_cast<void>(encoding);
    return self.paperText.size();
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

- (NSString*)description {
    return self;
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSString.class] &&
           self.paperText == [static_cast<NSString*>(other) paperText];
}

- (NSUInteger)hash {
    return std::hash<std::string>{}(self.paperText);
}

@end

// A literal that is no short ASCII text. This and the next two follow Clang, not Apple: only their
// texts are the same on a Mac.
@interface NSConstantString : NSString
@end

@implementation NSConstantString

- (const std::string&)paperText {
    return kept((__bridge const void*)self, [](const void* constant) {
        struct Layout {
            void* isa;
            unsigned flags, length, size, hash;
            const char* data;
        };
        constexpr unsigned encodingMask = 3;
        constexpr unsigned utf16 = 2;
        const auto* const literal = static_cast<const Layout*>(constant);
        return (literal->flags & encodingMask) == utf16
                   ? fromUTF16(reinterpret_cast<const char16_t*>(literal->data), literal->length)
                   : std::string(literal->data, literal->size);
    });
}

@end

// The result of CFSTR().
@interface PaperCFString : NSString
@end

@implementation PaperCFString

- (const std::string&)paperText {
    return kept((__bridge const void*)self, [](const void* constant) {
        struct Layout {
            void* isa;
            int flags;
            const char* data;
            long length;
        };
        constexpr int utf16 = 2000;
        const auto* const literal = static_cast<const Layout*>(constant);
        const auto length = static_cast<std::size_t>(literal->length);
        return literal->flags == utf16
                   ? fromUTF16(reinterpret_cast<const char16_t*>(literal->data), length)
                   : std::string(literal->data, length);
    });
}

@end

__asm__(".globl __CFConstantStringClassReference\n"
        ".set __CFConstantStringClassReference, ._OBJC_CLASS_PaperCFString\n");

// A literal of at most eight ASCII characters: stored in the pointer itself, seven bits per
// character from the top, with the length above the three tag bits.
@interface PaperShortString : NSString
@end

@implementation PaperShortString

- (const std::string&)paperText {
    return kept((__bridge const void*)self, [](const void* constant) {
        const auto bits = reinterpret_cast<std::uintptr_t>(constant);
        const std::size_t length = bits >> 3U & 15U;
        std::string text;
        for (std::size_t index = 0; index < length; ++index)
            text += static_cast<char>(bits >> (57 - index * 7) & 127U);
        return text;
    });
}

@end

namespace paper {

NSString* text(const std::string& text) {
    return [[NSString alloc] initWithBytes:text.data()
                                    length:text.size()
                                  encoding:NSUTF8StringEncoding];
}

}
