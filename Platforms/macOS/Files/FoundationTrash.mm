#include "Files/FoundationTrash.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <Foundation/Foundation.h>
#import <dispatch/dispatch.h>

#include <cerrno>
#include <utility>

namespace vireline::macos {
namespace {

Result<void> trash(const FileURL& url) {
    return attemptOr(Result<void>{std::unexpected{toPlatformError(EIO)}}, "trashItemAtURL",
                     [&]() -> Result<void> {
                         NSError* error = nil;
                         if (![NSFileManager.defaultManager trashItemAtURL:toNSURL(url)
                                                          resultingItemURL:nil
                                                                     error:&error])
                             return std::unexpected{toPlatformError(error)};
                         return {};
                     });
}

}

void FoundationTrash::moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) {
    const FileURL file = url;
    const auto report = std::move(done);
    dispatch_async(dispatch_get_main_queue(), ^{
      report(trash(file));
    });
}

}
