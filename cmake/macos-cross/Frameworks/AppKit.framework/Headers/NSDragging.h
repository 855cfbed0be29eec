#pragma once

#import <AppKit/NSPasteboard.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_OPTIONS(NSUInteger, NSDragOperation) {
    NSDragOperationNone = 0,
    NSDragOperationCopy = 1,
    NSDragOperationLink = 2,
    NSDragOperationGeneric = 4
};

@protocol NSDraggingInfo <NSObject>
@property (readonly) NSDragOperation draggingSourceOperationMask;
@property (readonly) NSPoint draggingLocation;
@property (readonly) NSPasteboard* draggingPasteboard;
@end

@protocol NSDraggingDestination <NSObject>
@optional
- (NSDragOperation)draggingEntered:(id<NSDraggingInfo>)sender;
- (NSDragOperation)draggingUpdated:(id<NSDraggingInfo>)sender;
- (void)draggingExited:(nullable id<NSDraggingInfo>)sender;
- (BOOL)performDragOperation:(id<NSDraggingInfo>)sender;
- (void)draggingEnded:(id<NSDraggingInfo>)sender;
- (BOOL)wantsPeriodicDraggingUpdates;
@end

NS_ASSUME_NONNULL_END
