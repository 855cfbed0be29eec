// Dispatch sources for file events, implemented with inotify.
#include "Cocoa/Paper.hpp"

#import <dispatch/dispatch.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstring>

// Documented: a source is created suspended; its handlers run on its queue; the cancel handler runs
// once, and no event follows it. Belief: inotify reports the same distinctions as kqueue, as far as
// the program uses them.
@interface PaperSource : NSObject <OS_dispatch_source>
@property(copy) dispatch_block_t onEvent;
@property(copy) dispatch_block_t onCancel;
@property int file;
@property int events;
@property uintptr_t mask;
@property uintptr_t data;
@property BOOL isCancelled;
@end

@implementation PaperSource

- (instancetype)init {
    self = [super init];
    self.events = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    return self;
}

- (void)dealloc {
    ::close(self.events);
}

- (uintptr_t)flagsOf:(uint32_t)event {
    struct stat found{};
    const bool isGone = ::fstat(self.file, &found) != 0 || found.st_nlink == 0;
    uintptr_t flags = 0;
    if ((event & IN_MODIFY) != 0)
        flags |= DISPATCH_VNODE_WRITE | DISPATCH_VNODE_EXTEND;
    if ((event & (IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO)) != 0)
        flags |= DISPATCH_VNODE_WRITE;
    if ((event & IN_ATTRIB) != 0)
        flags |= isGone ? DISPATCH_VNODE_DELETE : DISPATCH_VNODE_ATTRIB;
    if ((event & IN_DELETE_SELF) != 0)
        flags |= DISPATCH_VNODE_DELETE;
    if ((event & IN_MOVE_SELF) != 0)
        flags |= DISPATCH_VNODE_RENAME;
    return flags & self.mask;
}

/// Everything that has happened since the last call, as one event.
- (uintptr_t)takeFlags {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    uintptr_t flags = 0;
    for (;;) {
        const auto size = ::read(self.events, buffer.data(), buffer.size());
        if (size <= 0)
            return flags;
        for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            flags |= [self flagsOf:event.mask];
            at += sizeof event + event.len;
        }
    }
}

@end

namespace {

std::vector<PaperSource*>& sources() {
    static auto& all = *new std::vector<PaperSource*>;
    return all;
}

PaperSource* paperOf(dispatch_object_t source) {
    return static_cast<PaperSource*>(source);
}

}

extern "C" {

const struct dispatch_source_type_s _dispatch_source_type_vnode{1};

dispatch_source_t dispatch_source_create(dispatch_source_type_t, uintptr_t handle, uintptr_t mask,
                                         dispatch_queue_t) {
    PaperSource* const source = [[PaperSource alloc] init];
    source.file = static_cast<int>(handle);
    source.mask = mask;
    return source;
}

void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler) {
    paperOf(source).onEvent = handler;
}

void dispatch_source_set_cancel_handler(dispatch_source_t source, dispatch_block_t handler) {
    paperOf(source).onCancel = handler;
}

uintptr_t dispatch_source_get_data(dispatch_source_t source) {
    return paperOf(source).data;
}

void dispatch_resume(dispatch_object_t object) {
    PaperSource* const source = paperOf(object);
    const std::string file = "/proc/self/fd/" + std::to_string(source.file);
    ::inotify_add_watch(source.events, file.c_str(),
                        IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE | IN_MOVED_FROM |
                            IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF);
    sources().push_back(source);
}

void dispatch_source_cancel(dispatch_source_t object) {
    PaperSource* const source = paperOf(object);
    if (source.isCancelled)
        return;
    source.isCancelled = YES;
    source.onEvent = nil;
    std::erase(sources(), source);
    if (const dispatch_block_t handler = source.onCancel; handler != nil)
        dispatch_async(dispatch_get_main_queue(), handler);
    source.onCancel = nil;
}
}

namespace paper {

std::size_t fileWatches() {
    return sources().size();
}

void serveSources() {
    const auto all = sources();
    for (PaperSource* const source : all) {
        const uintptr_t flags = [source takeFlags];
        const dispatch_block_t handler = source.onEvent;
        if (flags == 0 || handler == nil)
            continue;
        source.data = flags;
        guarded("file event", [&] { handler(); });
    }
}

}
