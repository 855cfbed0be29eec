// The part of Dispatch that the program uses; its objects are Objective-C objects.
#pragma once
#include <fcntl.h>
#include <stdint.h>
#ifndef O_EVTONLY
#define O_EVTONLY O_RDONLY // on a Mac: opens for event notifications only
#endif
#import <objc/NSObject.h>
@protocol OS_dispatch_object <NSObject>
@end
typedef NSObject<OS_dispatch_object>* dispatch_object_t;
@protocol OS_dispatch_queue <OS_dispatch_object>
@end
typedef NSObject<OS_dispatch_queue>* dispatch_queue_t;
@protocol OS_dispatch_source <OS_dispatch_object>
@end
typedef NSObject<OS_dispatch_source>* dispatch_source_t;
typedef const struct dispatch_source_type_s* dispatch_source_type_t;
typedef void (^dispatch_block_t)(void);
typedef void (*dispatch_function_t)(void*);
extern "C" {
extern const struct dispatch_source_type_s { int kind; } _dispatch_source_type_vnode;
#define DISPATCH_SOURCE_TYPE_VNODE (&_dispatch_source_type_vnode)
#define DISPATCH_VNODE_DELETE 0x1
#define DISPATCH_VNODE_WRITE 0x2
#define DISPATCH_VNODE_EXTEND 0x4
#define DISPATCH_VNODE_ATTRIB 0x8
#define DISPATCH_VNODE_LINK 0x10
#define DISPATCH_VNODE_RENAME 0x20
#define DISPATCH_VNODE_REVOKE 0x40
typedef const void* dispatch_queue_attr_t;
#define DISPATCH_QUEUE_SERIAL nullptr
dispatch_queue_t dispatch_get_main_queue(void);
dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t attributes);
dispatch_queue_t dispatch_get_global_queue(intptr_t identifier, uintptr_t flags);
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle, uintptr_t mask, dispatch_queue_t queue);
void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler);
void dispatch_source_set_cancel_handler(dispatch_source_t source, dispatch_block_t handler);
uintptr_t dispatch_source_get_data(dispatch_source_t source);
void dispatch_source_cancel(dispatch_source_t source);
void dispatch_resume(dispatch_object_t object);
}
