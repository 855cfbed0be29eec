/// A small Objective-C runtime, so that the macOS platform runs on Linux under sanitizers. It is
/// what Clang's code for -fobjc-runtime=gnustep-2.0 -fobjc-legacy-dispatch calls: classes,
/// messages, reference counts, weak references, properties, blocks and exceptions. For tests only;
/// the paper classes above it stand for Apple's frameworks.
///
/// Since every message passes one function, the runtime also counts what tests want to know: live
/// objects, messages without an answer, messages off the main thread, and messages made to fail.
#pragma once

#include "Runtime/Layout.hpp"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace paper::rt {

[[nodiscard]] Class* classNamed(std::string_view name);
/// Also for strings that live inside their pointer.
[[nodiscard]] Class* classOf(const Object* object);
[[nodiscard]] bool isKind(const Class* klass, const Class* ancestor);
[[nodiscard]] bool conforms(const Class* klass, std::string_view protocol);

/// Null when neither the class nor an ancestor implements it.
[[nodiscard]] Slot* implementation(Class* klass, std::string_view selector);

/// As in a version of the system whose class does not implement it yet. For the rest of the
/// process.
void forget(std::string_view className, std::string_view selector);

/// The one selector that `@selector(name)` stands for, so that two of a name are equal.
[[nodiscard]] Selector* selectorNamed(const std::string& name);

[[nodiscard]] Object* allocate(Class* klass);
/// Ends the C++ members of all its classes and frees the object.
void dispose(Object* object);

/// Live instances by class: what tests for leaks compare.
[[nodiscard]] std::map<std::string, long> liveObjects();
[[nodiscard]] long liveObjects(std::string_view className);

/// "-[Class selector]" of every message that nothing answered.
[[nodiscard]] std::map<std::string, long> unansweredMessages();
void noteUnanswered(const std::string& message);

[[nodiscard]] bool isMainThread();
/// "Class selector" of the messages sent on another thread than the main one.
[[nodiscard]] std::map<std::string, long> messagesOffMainThread();

/// Makes each message with this selector that the program (not a paper class) sends raise an
/// NSException, until `clearFaults`.
void makeRaise(const std::string& selector);
[[nodiscard]] long raised(const std::string& selector);
void clearFaults();

/// Is told each message that the program sends to one of the system's classes.
void traceMessages(
    std::function<void(std::string_view className, std::string_view selector)> trace);

/// Guards everything of the runtime; also behind @synchronized.
[[nodiscard]] std::recursive_mutex& lock();

}
