/// A small Objective-C runtime for tests, so that the macOS platform can run on Linux under
/// sanitizers. It implements what Clang generates for -fobjc-runtime=gnustep-2.0
/// -fobjc-legacy-dispatch: classes, messages, reference counts, weak references, properties, blocks
/// and exceptions. The paper classes on top of it stand in for Apple's frameworks. Since every
/// message goes through one function, it also records what tests check: live objects, unrecognised
/// messages, messages off the main thread, and messages made to fail.
#pragma once

#include "Runtime/Layout.hpp"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace paper::rt {

[[nodiscard]] Class* classNamed(std::string_view name);
/// Also works for strings stored in their pointer.
[[nodiscard]] Class* classOf(const Object* object);
[[nodiscard]] bool isKind(const Class* klass, const Class* ancestor);
[[nodiscard]] bool conforms(const Class* klass, std::string_view protocol);

/// Null if neither the class nor an ancestor implements it.
[[nodiscard]] Slot* implementation(Class* klass, std::string_view selector);

/// As in a version of the system whose class does not implement it yet. For the rest of the
/// process.
void forget(std::string_view className, std::string_view selector);

/// The unique selector for `@selector(name)`, so that equal names compare equal.
[[nodiscard]] Selector* selectorNamed(const std::string& name);

[[nodiscard]] Object* allocate(Class* klass);
/// Destroys the C++ members of all its classes and frees the object.
void dispose(Object* object);

/// The number of live instances by class, for leak tests.
[[nodiscard]] std::map<std::string, long> liveObjects();
[[nodiscard]] long liveObjects(std::string_view className);

/// "-[Class selector]" of every message that was not recognised.
[[nodiscard]] std::map<std::string, long> unansweredMessages();
void noteUnanswered(const std::string& message);

[[nodiscard]] bool isMainThread();
/// "Class selector" of the messages sent on a thread other than the main one.
[[nodiscard]] std::map<std::string, long> messagesOffMainThread();

/// Makes each message with this selector that the program (not a paper class) sends raise an
/// NSException, until `clearFaults`.
void makeRaise(const std::string& selector);
[[nodiscard]] long raised(const std::string& selector);
void clearFaults();

/// Calls the function for each message that the program sends to one of the system's classes.
void traceMessages(
    std::function<void(std::string_view className, std::string_view selector)> trace);

/// Guards the whole runtime; also used for @synchronized.
[[nodiscard]] std::recursive_mutex& lock();

}
