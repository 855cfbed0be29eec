// Looks up methods, and records the messages that tests are interested in.
#include "Runtime/Internal.hpp"
#include "Runtime/Runtime.hpp"

#include <pthread.h>

#include <cstring>
#include <utility>

// The program's objects are linked between two object files that contain only these symbols, so
// that a message's sender is recognised by its address.
extern "C" void paper_program_begin();
extern "C" void paper_program_end();
/// Raises an NSException with this reason.
extern "C" void paper_raise(const char* reason);

namespace paper::rt {
namespace {

const pthread_t mainThread = pthread_self();

struct Accounts {
    std::map<std::string, long> unanswered;
    std::map<std::string, long> offMainThread;
    std::map<std::string, long, std::less<>> faults;
    std::function<void(std::string_view, std::string_view)> trace;
    std::map<std::string, Selector*> selectors;
};

Accounts& accounts() {
    static auto& all = *new Accounts;
    return all;
}

bool isProgram(const void* caller) {
    const auto at = reinterpret_cast<std::uintptr_t>(caller);
    return at > reinterpret_cast<std::uintptr_t>(&paper_program_begin) &&
           at < reinterpret_cast<std::uintptr_t>(&paper_program_end);
}

thread_local std::string reason;

/// Called instead of the method, so that the exception originates in the sender's frame.
void raiseReason() {
    paper_raise(reason.c_str());
}

Slot* raising(std::string why) {
    thread_local Slot slot{nullptr, nullptr, nullptr, 1, &raiseReason};
    reason = std::move(why);
    return &slot;
}

std::string describe(const Class* klass, const char* selector) {
    const bool isClassMethod = (klass->info & 1U) != 0;
    return std::string{isClassMethod ? "+[" : "-["} + klass->name + " " + selector + "]";
}

/// Returns a slot if the message is to raise.
Slot* watched(const Class* klass, const char* selector, const void* caller) {
    Accounts& all = accounts();
    if (!isMainThread())
        ++all.offMainThread[std::string{klass->name} + " " + selector];
    if (!all.trace && all.faults.empty())
        return nullptr;
    if (!isProgram(caller))
        return nullptr;
    if (all.trace)
        all.trace(klass->name, selector);
    const auto fault = all.faults.find(selector);
    if (fault == all.faults.end())
        return nullptr;
    ++fault->second;
    return raising("made to raise: " + describe(klass, selector));
}

std::uintptr_t answerOfNil() {
    return 0;
}

}

bool isMainThread() {
    return pthread_equal(pthread_self(), mainThread) != 0;
}

Slot* lookUp(Class* klass, const Selector* selector, const void* caller) {
    const std::lock_guard hold{lock()};
    if (klass->table == nullptr)
        fail("class used before it was loaded:", klass->name);
    if (Slot* const fault = watched(klass, selector->name, caller); fault != nullptr)
        return fault;
    Slot*& found = klass->table->found[selector];
    if (found == nullptr)
        found = implementation(klass, selector->name);
    if (found != nullptr)
        return found;
    noteUnanswered(describe(klass, selector->name));
    return raising(describe(klass, selector->name) + ": unrecognized selector");
}

void adoptSelectors(Selector* first, const Selector* last) {
    // Typed selectors are used for messages; only untyped ones are compared by address.
    for (; first < last; ++first)
        if (first->name != nullptr && first->types == nullptr)
            accounts().selectors.try_emplace(first->name, first);
}

Selector* selectorNamed(const std::string& name) {
    const std::lock_guard hold{lock()};
    Selector*& found = accounts().selectors[name];
    if (found == nullptr)
        found = new Selector{strdup(name.c_str()), nullptr};
    return found;
}

std::map<std::string, long> unansweredMessages() {
    const std::lock_guard hold{lock()};
    return accounts().unanswered;
}

void noteUnanswered(const std::string& message) {
    const std::lock_guard hold{lock()};
    ++accounts().unanswered[message];
}

std::map<std::string, long> messagesOffMainThread() {
    const std::lock_guard hold{lock()};
    return accounts().offMainThread;
}

void makeRaise(const std::string& selector) {
    const std::lock_guard hold{lock()};
    accounts().faults.try_emplace(selector, 0);
}

long raised(const std::string& selector) {
    const std::lock_guard hold{lock()};
    const auto found = accounts().faults.find(selector);
    return found == accounts().faults.end() ? 0 : found->second;
}

void clearFaults() {
    const std::lock_guard hold{lock()};
    accounts().faults.clear();
}

void traceMessages(std::function<void(std::string_view, std::string_view)> trace) {
    const std::lock_guard hold{lock()};
    accounts().trace = std::move(trace);
}

}

using namespace paper::rt;

extern "C" {

Slot* objc_msg_lookup_sender(Object** receiver, Selector* selector, Object*) {
    static Slot nil{nullptr, nullptr, nullptr, 1, reinterpret_cast<Code>(&answerOfNil)};
    if (*receiver == nullptr)
        return &nil;
    return lookUp(classOf(*receiver), selector, __builtin_return_address(0));
}

Code objc_msg_lookup_super(Super* super, Selector* selector) {
    return lookUp(super->superclass, selector, __builtin_return_address(0))->code;
}

int objc_sync_enter(Object*) {
    lock().lock();
    return 0;
}

int objc_sync_exit(Object*) {
    lock().unlock();
    return 0;
}

void objc_enumerationMutation(Object* collection) {
    fail("changed while it was enumerated:", classOf(collection)->name);
}
}
