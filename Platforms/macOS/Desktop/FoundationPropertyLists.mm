#include "Desktop/FoundationPropertyLists.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <Foundation/Foundation.h>

namespace vireline::macos {

Result<PropertyList> FoundationPropertyLists::decode(std::span<const std::byte> bytes) const {
    return attemptOr(Result<PropertyList>{std::unexpected{raisedError()}}, "propertyListWithData",
                     [&]() -> Result<PropertyList> {
                         NSData* const data = [NSData dataWithBytes:bytes.data()
                                                             length:bytes.size()];
                         NSError* error = nil;
                         const id decoded = [NSPropertyListSerialization
                             propertyListWithData:data
                                          options:NSPropertyListImmutable
                                           format:nil
                                            error:&error];
                         if (decoded == nil)
                             return std::unexpected{toPlatformError(error)};
                         return toPropertyList(decoded);
                     });
}

}
