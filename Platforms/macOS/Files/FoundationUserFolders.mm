#include "Files/FoundationUserFolders.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <Foundation/Foundation.h>

#include <cstdlib>
#include <utility>

namespace vireline::macos {
namespace {

/// The home folder from the environment.
FileURL sessionsHome() {
    const char* const path = std::getenv("HOME");
    return path == nullptr || *path != '/' ? FileURL{} : FileURL::fromPath(path);
}

/// Does not create the folder.
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
    return attemptOr(sessionsHome(), "NSHomeDirectory",
                     [] { return FileURL::fromPath(toText(NSHomeDirectory())); });
}

std::vector<FileURL> FoundationUserFolders::applicationSupport() const {
    // The usual location as the fallback, since the program cannot run without this folder.
    const std::vector usual{sessionsHome().appending("Library").appending("Application Support")};
    return attemptOr(usual, "URLsForDirectory", [] {
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
