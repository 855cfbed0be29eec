/// What the runtime's own files share.
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
    /// What the class itself implements, its categories included.
    std::map<std::string, Slot, std::less<>> own;
    /// By the caller's selector, of which there are several for one name.
    std::unordered_map<const Selector*, Slot*> found;
    std::atomic<long> live{0};
    /// Constants, classes and strings inside pointers are never freed.
    bool isImmortal = false;
};

/// Lies in front of every object.
struct Header {
    std::atomic<long> references;
    std::atomic<bool> isWeaklyHeld;
};
inline constexpr std::size_t headerSize = 16;
static_assert(sizeof(Header) <= headerSize);

/// An object with that many references is being deallocated: more or fewer change nothing.
inline constexpr long deallocating = 1L << 40;

inline Header* header(Object* object) {
    return reinterpret_cast<Header*>(reinterpret_cast<char*>(object) - headerSize);
}

/// Short ASCII strings live inside their pointer, told by its low bits.
inline bool isTagged(const Object* object) {
    return (reinterpret_cast<std::uintptr_t>(object) & 7U) != 0;
}

inline bool isImmortal(const Object* object) {
    return object->isa->table == nullptr || object->isa->table->isImmortal;
}

/// A block's isa is one of three arrays.
bool isBlock(const Object* object);
void loadBlockClasses(Class* blockClass);
Object* copyBlock(const Object* block);
void releaseBlock(Object* block);

/// Never null: for a message without an answer it is one that raises an exception. `caller` is the
/// address that the message is sent from.
Slot* lookUp(Class* klass, const Selector* selector, const void* caller);

/// Remembers the selectors that `@selector()` stands for in this image.
void adoptSelectors(Selector* first, const Selector* last);

[[noreturn]] void fail(const char* why, const char* what);

}

extern "C" {
paper::rt::Object* objc_retain(paper::rt::Object* object);
void objc_release(paper::rt::Object* object);
paper::rt::Object* objc_autorelease(paper::rt::Object* object);
}
