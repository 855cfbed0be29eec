/// Where Objective-C exceptions end. Every call into the system that a port makes runs in one of
/// these, with a pool for what it leaves behind.
#pragma once

#include "Foundation/Result.hpp"

#import <Foundation/Foundation.h>

namespace vireline::macos {

/// What a call fails with that raised an exception.
[[nodiscard]] PlatformError raisedError();

/// One line in the log.
void reportException(const char* _Nonnull call, NSException* _Nonnull exception);

/// What `function` returns; `fallback` when it raised an Objective-C exception, which is logged.
template <class Fallback, class Function>
[[nodiscard]] auto attemptOr(Fallback fallback, const char* _Nonnull call, Function function)
    -> decltype(function()) {
    @autoreleasepool {
        @try {
            return function();
        } @catch (NSException* exception) {
            reportException(call, exception);
        }
        return fallback;
    }
}

/// Calls `function`; an Objective-C exception that it raised is logged.
template <class Function>
void attempt(const char* _Nonnull call, Function function) {
    @autoreleasepool {
        @try {
            function();
        } @catch (NSException* exception) {
            reportException(call, exception);
        }
    }
}

}
