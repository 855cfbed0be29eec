/// Shared by the runtime's own files.
#pragma once

#include "Runtime/Layout.hpp"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>

namespace paper::rt {

struct ClassTable {
    /// The methods that the class itself implements, including its categories.
    std::map<std::string, Slot, std::less<>> own;
    /// Cache by the caller's selector, of which there may be several with the same name.
    std::unordered_map<const Selector*, Slot*> found;
    std::atomic<long> live{0};
    /// Constants, classes and strings stored in pointers are never freed.
    bool isImmortal = false;
};

/// Precedes every object in memory.
struct Header {
    std::atomic<long> references;
    std::atomic<bool> isWeaklyHeld;
};
inline constexpr std::size_t headerSize = 16;
static_assert(sizeof(Header) <= headerSize);

/// The reference count of an object that is being deallocated; retain and release have no effect.
inline constexpr long deallocating = 1L << 40;

inline Header* header(Object* object) {
    return reinterpret_cast<Header*>(reinterpret_cast<char*>(object) - headerSize);
}

/// Short ASCII strings are stored in their pointer, marked by its low bits.
inline bool isTagged(const Object* object) {
    return (reinterpret_cast<std::uintptr_t>(object) & 7U) != 0;
}

inline bool isImmortal(const Object* object) {
    return object->isa->table == nullptr || object->isa->table->isImmortal;
}

/// A block's isa points to one of three arrays.
bool isBlock(const Object* object);
void loadBlockClasses(Class* blockClass);
Object* copyBlock(const Object* block);
void releaseBlock(Object* block);

/// Never null: for an unrecognised message it is a slot that raises an exception. `caller` is the
/// address from which the message is sent.
Slot* lookUp(Class* klass, const Selector* selector, const void* caller);

/// Registers the selectors that `@selector()` refers to in this image.
void adoptSelectors(Selector* first, const Selector* last);

[[noreturn]] void fail(const char* why, const char* what);

}

extern "C" {
paper::rt::Object* objc_retain(paper::rt::Object* object);
void objc_release(paper::rt::Object* object);
paper::rt::Object* objc_autorelease(paper::rt::Object* object);
}
