#include "Files/DispatchFileEvents.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/VnodeEvents.hpp"

#import <dispatch/dispatch.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace vireline::macos {
namespace {

static_assert(VnodeEvents::removed == DISPATCH_VNODE_DELETE);
static_assert(VnodeEvents::written == DISPATCH_VNODE_WRITE);
static_assert(VnodeEvents::extended == DISPATCH_VNODE_EXTEND);
static_assert(VnodeEvents::renamed == DISPATCH_VNODE_RENAME);

using EventsHandler = std::function<void(FileEventSet)>;

std::unexpected<PlatformError> watchFailure(int code) {
    return std::unexpected{
        attemptOr(raisedError(), "localizedDescription", [&] { return toPlatformError(code); })};
}

int openForEvents(const FileURL& url) {
    int file = -1;
    do {
        file = ::open(url.path().c_str(), O_EVTONLY | O_CLOEXEC);
    } while (file < 0 && errno == EINTR);
    return file;
}

}

Result<Subscription> DispatchFileEvents::watch(const FileURL& url, EventsHandler handler) {
    const int file = openForEvents(url);
    if (file < 0)
        return watchFailure(errno);
    const dispatch_source_t source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<uintptr_t>(file),
                               VnodeEvents::all, dispatch_get_main_queue());
    if (source == nil) {
        ::close(file);
        return watchFailure(ENOMEM);
    }
    const auto shared = std::make_shared<EventsHandler>(std::move(handler));
    const std::weak_ptr<EventsHandler> weakHandler = shared;
    __weak dispatch_source_t weakSource = source;
    dispatch_source_set_event_handler(source, ^{
      const auto held = weakHandler.lock();
      const dispatch_source_t fired = weakSource;
      if (held && fired != nil)
          (*held)(VnodeEvents::fileEvents(dispatch_source_get_data(fired)));
    });
    // The descriptor must not be closed before the source has been cancelled.
    dispatch_source_set_cancel_handler(source, ^{
      ::close(file);
    });
    dispatch_resume(source);
    return Subscription::calling([source, shared] { dispatch_source_cancel(source); });
}

}
