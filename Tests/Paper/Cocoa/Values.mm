// Numbers, data, errors, exceptions and URLs.
#include "Cocoa/Extensions.hpp"

#include <array>
#include <cctype>
#include <cstdio>
#include <cstring>

extern "C" void objc_exception_throw(id exception) __attribute__((noreturn));

NSErrorDomain const NSPOSIXErrorDomain = @"NSPOSIXErrorDomain";

// Documented: never changes, so a copy is itself.
@implementation NSValue

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: a boolean is a separate kind of number, distinguished by its Core Foundation type.
@implementation NSNumber {
    long long _whole;
    double _real;
}

static NSNumber* make(long long whole, double real, BOOL isBoolean, BOOL isReal) {
    NSNumber* const number = [[NSNumber alloc] init];
    number->_whole = whole;
    number->_real = real;
    number->_paperIsBoolean = isBoolean;
    number->_paperIsReal = isReal;
    return number;
}

+ (NSNumber*)numberWithInt:(int)value {
    return make(value, value, NO, NO);
}

+ (NSNumber*)numberWithBool:(BOOL)value {
    return make(value, value, YES, NO);
}

+ (NSNumber*)numberWithLongLong:(long long)value {
    return make(value, static_cast<double>(value), NO, NO);
}

+ (NSNumber*)numberWithDouble:(double)value {
    return make(static_cast<long long>(value), value, NO, YES);
}

- (BOOL)boolValue {
    return _whole != 0 || _real != 0;
}

- (double)doubleValue {
    return _real;
}

- (long long)longLongValue {
    return _whole;
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSNumber.class] && static_cast<NSNumber*>(other)->_real == _real &&
           static_cast<NSNumber*>(other)->_whole == _whole;
}

- (NSUInteger)hash {
    return static_cast<NSUInteger>(_whole);
}

@end

// Documented: `bytes` is valid as long as the object.
@implementation NSData {
    std::vector<char> _content;
}

+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length {
    NSData* const data = [[self alloc] init];
    const auto* const first = static_cast<const char*>(bytes);
    if (length != 0)
        data->_content.assign(first, first + length);
    return data;
}

- (NSUInteger)length {
    return _content.size();
}

- (const void*)bytes {
    return _content.data();
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Belief: the description of a POSIX error contains the system's own message.
@implementation NSError

+ (instancetype)errorWithDomain:(NSErrorDomain)domain
                           code:(NSInteger)code
                       userInfo:(NSDictionary*)userInfo {
    static_cast<void>(domain);
    static_cast<void>(userInfo);
    NSError* const error = [[self alloc] init];
    error.code = code;
    return error;
}

- (NSString*)localizedDescription {
    return paper::text(std::strerror(static_cast<int>(self.code)));
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: name and reason say what went wrong. Exceptions raised by paper are thrown through
// C++ frames, as Apple's 64-bit runtime does.
@implementation NSException

+ (void)paperRaise:(NSExceptionName)name reason:(NSString*)reason {
    NSException* const exception = [[NSException alloc] init];
    exception.name = name;
    exception.reason = reason;
    objc_exception_throw(exception);
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

extern "C" void paper_raise(const char* reason) {
    [NSException paperRaise:@"NSInvalidArgumentException" reason:paper::text(reason)];
}

// Documented: a file URL escapes what is not allowed in a path; URLWithString: returns nil for
// invalid text; web addresses have a path as well. Belief: only blanks make a text invalid, which
// is all that the program could meet.
@implementation NSURL {
    std::string _path;
    std::string _text;
    BOOL _isFile;
}

+ (NSURL*)fileURLWithPath:(NSString*)path {
    NSURL* const url = [[NSURL alloc] init];
    url->_isFile = YES;
    url->_path = path.paperText;
    while (url->_path.size() > 1 && url->_path.back() == '/')
        url->_path.pop_back();
    return url;
}

+ (instancetype)URLWithString:(NSString*)string {
    const std::string& text = string.paperText;
    if (text.empty() || text.find(' ') != std::string::npos)
        return nil;
    NSURL* const url = [[NSURL alloc] init];
    url->_text = text;
    url->_isFile = text.starts_with("file://");
    if (url->_isFile)
        url->_path = text.substr(std::strlen("file://"));
    else if (const auto host = text.find("://"); host != text.npos)
        if (const auto path = text.find('/', host + 3); path != text.npos)
            url->_path = text.substr(path);
    return url;
}

- (BOOL)isFileURL {
    return _isFile;
}

- (NSString*)path {
    return _path.empty() ? nil : paper::text(_path);
}

- (NSURL*)filePathURL {
    return _isFile ? self : nil;
}

- (NSString*)absoluteString {
    if (!_isFile)
        return paper::text(_text);
    std::string escaped = "file://";
    for (const char character : _path) {
        const auto byte = static_cast<unsigned char>(character);
        std::array<char, 4> hexadecimal{};
        std::snprintf(hexadecimal.data(), hexadecimal.size(), "%%%02X", byte);
        const bool isPlain = std::isalnum(byte) != 0 || std::strchr("/-._~", byte) != nullptr;
        escaped += isPlain ? std::string(1, character) : std::string{hexadecimal.data()};
    }
    return paper::text(escaped);
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSURL.class] &&
           [self.absoluteString isEqual:[static_cast<NSURL*>(other) absoluteString]];
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end
