/// The paper objects behind Core Foundation's opaque references.
#pragma once

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

/// A program, or one of its windows.
@interface PaperElement : NSObject
@property int processIdentifier;
/// Unset for the program itself.
@property NSInteger window;
@end

/// A point or a size, boxed as attributes need it.
@interface PaperBox : NSObject
@property AXValueType type;
@property CGPoint content;
@end

namespace paper {

enum : CFTypeID {
    otherType = 1,
    arrayType = 19,
    booleanType = 21,
    numberType = 22,
    elementType = 60,
    boxType = 61
};

}
