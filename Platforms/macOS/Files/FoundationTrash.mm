#include "Files/FoundationTrash.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <Foundation/Foundation.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace vireline::macos {
namespace {

struct Outcome {
    Result<void> result;
    /// Kept so that it can be logged on the main thread.
    NSException* exception = nil;
};

Result<void> moved(const FileURL& url) {
    NSError* error = nil;
    if (![NSFileManager.defaultManager trashItemAtURL:toNSURL(url)
                                     resultingItemURL:nil
                                                error:&error])
        return std::unexpected{toPlatformError(error)};
    return {};
}

Outcome trash(const FileURL& url) {
    @autoreleasepool {
        @try {
            return {moved(url)};
        } @catch (NSException* exception) {
            return {std::unexpected{raisedError()}, exception};
        }
    }
}

}

FoundationTrash::FoundationTrash()
    : queue_(dispatch_queue_create("org.vireline.trash", DISPATCH_QUEUE_SERIAL)) {}

void FoundationTrash::moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) {
    const FileURL file = url;
    const auto report = std::make_shared<std::function<void(Result<void>)>>(std::move(done));
    // A slow disk, or a request for the user's consent, blocks only this queue.
    dispatch_async(queue_, ^{
      const Outcome outcome = trash(file);
      dispatch_async(dispatch_get_main_queue(), ^{
        if (outcome.exception != nil)
            reportException("trashItemAtURL", outcome.exception);
        const auto tell = std::exchange(*report, nullptr);
        tell(outcome.result);
      });
    });
}

}
