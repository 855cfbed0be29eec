// The functions that synthesised properties call. A single lock guards all of them, including
// nonatomic ones.
#include "Runtime/Internal.hpp"
#include "Runtime/Runtime.hpp"

#include <cstddef>
#include <cstring>
#include <utility>

using namespace paper::rt;

namespace {

Object** placeAt(Object* self, std::ptrdiff_t offset) {
    return reinterpret_cast<Object**>(reinterpret_cast<char*>(self) + offset);
}

Object* copied(Object* object) {
    if (object == nullptr || isTagged(object))
        return object;
    if (isBlock(object))
        return copyBlock(object);
    Selector* const copy = selectorNamed("copyWithZone:");
    const Slot* const slot = lookUp(object->isa, copy, nullptr);
    return reinterpret_cast<Object* (*)(Object*, Selector*, void*)>(slot->code)(object, copy,
                                                                                nullptr);
}

/// Takes ownership of `owned`.
void store(Object* self, std::ptrdiff_t offset, Object* owned) {
    Object* before = nullptr;
    {
        const std::lock_guard hold{lock()};
        before = std::exchange(*placeAt(self, offset), owned);
    }
    objc_release(before);
}

}

extern "C" {

Object* objc_getProperty(Object* self, Selector*, std::ptrdiff_t offset, bool) {
    const std::lock_guard hold{lock()};
    return objc_autorelease(objc_retain(*placeAt(self, offset)));
}

void objc_setProperty(Object* self, Selector*, std::ptrdiff_t offset, Object* value, bool,
                      bool copies) {
    store(self, offset, copies ? copied(value) : objc_retain(value));
}

void objc_setProperty_atomic(Object* self, Selector*, Object* value, std::ptrdiff_t offset) {
    store(self, offset, objc_retain(value));
}

void objc_setProperty_nonatomic(Object* self, Selector*, Object* value, std::ptrdiff_t offset) {
    store(self, offset, objc_retain(value));
}

void objc_setProperty_atomic_copy(Object* self, Selector*, Object* value, std::ptrdiff_t offset) {
    store(self, offset, copied(value));
}

void objc_setProperty_nonatomic_copy(Object* self, Selector*, Object* value,
                                     std::ptrdiff_t offset) {
    store(self, offset, copied(value));
}

void objc_getPropertyStruct(void* to, const void* from, std::ptrdiff_t size, bool, bool) {
    const std::lock_guard hold{lock()};
    std::memcpy(to, from, static_cast<std::size_t>(size));
}

void objc_setPropertyStruct(void* to, const void* from, std::ptrdiff_t size, bool, bool) {
    const std::lock_guard hold{lock()};
    std::memcpy(to, from, static_cast<std::size_t>(size));
}
}
