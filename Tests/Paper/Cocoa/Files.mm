// Files, in the test's own home folder, and bundles and property lists as far as they are needed.
#include "Cocoa/Paper.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <utility>

NSFileAttributeKey const NSFilePosixPermissions = @"NSFilePosixPermissions";

namespace {

std::string& homeFolder() {
    static auto& path = *new std::string{"/nonexistent"};
    return path;
}

std::string& lockedFolder() {
    static auto& path = *new std::string;
    return path;
}

BOOL failed(NSError** error, int code) {
    if (error != nullptr)
        *error = [NSError errorWithDomain:NSPOSIXErrorDomain code:code userInfo:nil];
    return NO;
}

NSURL* inHome(const char* path) {
    return [NSURL fileURLWithPath:paper::text(homeFolder() + path)];
}

}

NSString* NSHomeDirectory(void) {
    return paper::text(homeFolder());
}

// Documented: like the underlying system calls. Belief: display names omit the extension ".app".
@implementation NSFileManager

+ (NSFileManager*)defaultManager {
    static NSFileManager* const manager = [[NSFileManager alloc] init];
    return manager;
}

- (BOOL)fileExistsAtPath:(NSString*)path {
    return ::access(path.UTF8String, F_OK) == 0;
}

- (NSString*)displayNameAtPath:(NSString*)path {
    return paper::text(std::filesystem::path{path.paperText}.stem().string());
}

- (NSArray*)URLsForDirectory:(NSSearchPathDirectory)directory
                   inDomains:(NSSearchPathDomainMask)domains {
    static_cast<void>(domains);
    return directory == NSApplicationSupportDirectory ? @[ inHome("/Library/Application Support") ]
                                                      : @[];
}

- (NSURL*)URLForDirectory:(NSSearchPathDirectory)directory
                 inDomain:(NSSearchPathDomainMask)domain
        appropriateForURL:(NSURL*)url
                   create:(BOOL)create
                    error:(NSError**)error {
    static_cast<void>(domain);
    static_cast<void>(url);
    static_cast<void>(create);
    static_cast<void>(error);
    return inHome(directory == NSTrashDirectory ? "/.Trash" : "/Downloads");
}

- (BOOL)createDirectoryAtURL:(NSURL*)url
    withIntermediateDirectories:(BOOL)makesParents
                     attributes:(NSDictionary*)attributes
                          error:(NSError**)error {
    static_cast<void>(makesParents);
    const std::filesystem::path path{url.path.paperText};
    std::error_code code;
    if (!std::filesystem::create_directories(path, code))
        return code ? failed(error, code.value()) : YES;
    const id mode = attributes[NSFilePosixPermissions];
    if (mode != nil)
        ::chmod(path.c_str(), static_cast<mode_t>([mode longLongValue]));
    return YES;
}

- (BOOL)trashItemAtURL:(NSURL*)url resultingItemURL:(NSURL**)result error:(NSError**)error {
    static_cast<void>(result);
    const std::filesystem::path from{url.path.paperText};
    if (!lockedFolder().empty() && from.string().starts_with(lockedFolder()))
        return failed(error, EPERM);
    const std::filesystem::path trash{homeFolder() + "/.Trash"};
    std::error_code code;
    std::filesystem::create_directories(trash, code);
    std::filesystem::rename(from, trash / from.filename(), code);
    return code ? failed(error, code.value()) : YES;
}

@end

// Documented: closes its descriptor when deallocated, if told so. Reads up to the length or the end
// of the file.
@implementation NSFileHandle {
    int _file;
    BOOL _closes;
}

- (instancetype)initWithFileDescriptor:(int)file closeOnDealloc:(BOOL)closes {
    self = [super init];
    _file = file;
    _closes = closes;
    return self;
}

- (void)dealloc {
    if (_closes && _file >= 0)
        ::close(_file);
}

- (NSData*)readDataUpToLength:(NSUInteger)length error:(NSError**)error {
    std::string content;
    std::array<char, 4096> part{};
    while (content.size() < length) {
        const auto wanted = std::min<std::size_t>(part.size(), length - content.size());
        const auto count = ::read(_file, part.data(), wanted);
        if (count < 0) {
            failed(error, errno);
            return nil;
        }
        if (count == 0)
            break;
        content.append(part.data(), static_cast<std::size_t>(count));
    }
    return [NSData dataWithBytes:content.data() length:content.size()];
}

- (BOOL)writeData:(NSData*)data error:(NSError**)error {
    const auto written = ::write(_file, data.bytes, data.length);
    return written == static_cast<ssize_t>(data.length) ? YES : failed(error, errno);
}

- (BOOL)synchronizeAndReturnError:(NSError**)error {
    return ::fsync(_file) == 0 ? YES : failed(error, errno);
}

- (BOOL)closeAndReturnError:(NSError**)error {
    const int file = std::exchange(_file, -1);
    return ::close(file) == 0 ? YES : failed(error, errno);
}

@end

// Belief: a folder that is not an application still has a bundle, but that bundle has no
// identifier.
@implementation NSBundle {
    NSString* _identifier;
}

+ (instancetype)bundleWithURL:(NSURL*)url {
    for (NSRunningApplication* const app : paper::installedApplications()) {
        if (![app.bundleURL isEqual:url])
            continue;
        NSBundle* const bundle = [[NSBundle alloc] init];
        bundle->_identifier = app.bundleIdentifier;
        return bundle;
    }
    return nil;
}

- (NSString*)bundleIdentifier {
    return _identifier;
}

@end

// Only its failure is implemented: the program reads the preferences, not the files.
@implementation NSPropertyListSerialization

+ (id)propertyListWithData:(NSData*)data
                   options:(NSPropertyListReadOptions)options
                    format:(NSPropertyListFormat*)format
                     error:(NSError**)error {
    static_cast<void>(data);
    static_cast<void>(options);
    static_cast<void>(format);
    failed(error, EINVAL);
    return nil;
}

@end

namespace paper {

void setHome(const std::string& path) {
    homeFolder() = path;
}

void lockFolder(const std::string& path) {
    lockedFolder() = path;
}

const std::string& home() {
    return homeFolder();
}

}
