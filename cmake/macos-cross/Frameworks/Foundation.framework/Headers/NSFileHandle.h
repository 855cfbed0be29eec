#pragma once

#import <Foundation/NSData.h>
#import <Foundation/NSError.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSFileHandle : NSObject
- (instancetype)initWithFileDescriptor:(int)fd closeOnDealloc:(BOOL)closeopt;
- (nullable NSData*)readDataUpToLength:(NSUInteger)length
                                 error:(NSError**)error API_AVAILABLE(macos(10.15));
- (BOOL)writeData:(NSData*)data error:(NSError**)error API_AVAILABLE(macos(10.15));
- (BOOL)synchronizeAndReturnError:(NSError**)error API_AVAILABLE(macos(10.15));
- (BOOL)closeAndReturnError:(NSError**)error API_AVAILABLE(macos(10.15));
@end

NS_ASSUME_NONNULL_END
