/// Catches Objective-C exceptions. Every call that a port makes into the system runs inside one of
/// these functions, with an autorelease pool.
#pragma once

#include "Foundation/Result.hpp"

#import <Foundation/Foundation.h>

namespace vireline::macos {

/// The error to return for a call that raised an exception.
[[nodiscard]] PlatformError raisedError();

/// Logs the exception.
void reportException(const char* _Nonnull call, NSException* _Nonnull exception);

/// Returns the result of `function`. If it raises an Objective-C exception, logs that and returns
/// `fallback`.
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

/// Calls `function`, and logs an Objective-C exception that it raises.
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
