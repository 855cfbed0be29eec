#include "Files/FoundationUserFolders.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <Foundation/Foundation.h>

#include <utility>

namespace vireline::macos {
namespace {

/// Never creates it.
std::optional<FileURL> find(NSSearchPathDirectory folder) {
    return attemptOr(std::optional<FileURL>{}, "URLForDirectory", [&] {
        return toFileURL([NSFileManager.defaultManager URLForDirectory:folder
                                                              inDomain:NSUserDomainMask
                                                     appropriateForURL:nil
                                                                create:NO
                                                                 error:nil]);
    });
}

}

FileURL FoundationUserFolders::home() const {
    return attemptOr(FileURL{}, "NSHomeDirectory",
                     [] { return FileURL::fromPath(toText(NSHomeDirectory())); });
}

std::vector<FileURL> FoundationUserFolders::applicationSupport() const {
    return attemptOr(std::vector<FileURL>{}, "URLsForDirectory", [] {
        std::vector<FileURL> folders;
        for (NSURL* url in
             [NSFileManager.defaultManager URLsForDirectory:NSApplicationSupportDirectory
                                                  inDomains:NSUserDomainMask]) {
            if (auto folder = toFileURL(url))
                folders.push_back(*std::move(folder));
        }
        return folders;
    });
}

std::optional<FileURL> FoundationUserFolders::downloads() const {
    return find(NSDownloadsDirectory);
}

std::optional<FileURL> FoundationUserFolders::trash() const {
    return find(NSTrashDirectory);
}

}
