// Reference counts, weak references and autorelease pools: the functions that ARC calls.
#include "Runtime/Internal.hpp"
#include "Runtime/Runtime.hpp"

#include <unordered_set>
#include <vector>

using namespace paper::rt;

namespace {

/// The addresses of weak references to each object.
std::unordered_map<Object*, std::unordered_set<Object**>>& weakPlaces() {
    static auto& all = *new std::unordered_map<Object*, std::unordered_set<Object**>>;
    return all;
}

void clearWeakPlaces(Object* object) {
    const std::lock_guard hold{lock()};
    const auto found = weakPlaces().find(object);
    if (found == weakPlaces().end())
        return;
    for (Object** const place : found->second)
        *place = nullptr;
    weakPlaces().erase(found);
}

void forget(Object** place) {
    const auto found = weakPlaces().find(*place);
    if (found != weakPlaces().end())
        found->second.erase(place);
}

/// Objects autoreleased without a pool live until their thread ends.
struct Pools {
    std::vector<Object*> objects;

    Pools() = default;
    Pools(const Pools&) = delete;
    Pools& operator=(const Pools&) = delete;
    Pools(Pools&&) = delete;
    Pools& operator=(Pools&&) = delete;
    ~Pools() { drain(0); }

    void drain(std::size_t size) {
        while (objects.size() > size) {
            Object* const last = objects.back();
            objects.pop_back();
            objc_release(last);
        }
    }
};
thread_local Pools pools;

}

extern "C" {

Object* objc_retain(Object* object) {
    if (object == nullptr || isTagged(object))
        return object;
    if (isBlock(object))
        return copyBlock(object);
    if (!isImmortal(object))
        ++header(object)->references;
    return object;
}

void objc_release(Object* object) {
    if (object == nullptr || isTagged(object))
        return;
    if (isBlock(object))
        return releaseBlock(object);
    if (isImmortal(object))
        return;
    const long left = --header(object)->references;
    if (left > 0)
        return;
    if (left < 0)
        fail("released once too often:", object->isa->name);
    if (header(object)->isWeaklyHeld)
        clearWeakPlaces(object);
    header(object)->references = deallocating;
    const Slot* const dealloc = implementation(object->isa, "dealloc");
    reinterpret_cast<void (*)(Object*, Selector*)>(dealloc->code)(object, selectorNamed("dealloc"));
}

Object* objc_autorelease(Object* object) {
    if (object != nullptr)
        pools.objects.push_back(object);
    return object;
}

void* objc_autoreleasePoolPush() {
    // Never null, which a caller might take for the absence of a pool.
    return reinterpret_cast<void*>(pools.objects.size() + 1);
}

void objc_autoreleasePoolPop(void* pool) {
    pools.drain(reinterpret_cast<std::size_t>(pool) - 1);
}

Object* objc_retainAutorelease(Object* object) {
    return objc_autorelease(objc_retain(object));
}

Object* objc_autoreleaseReturnValue(Object* object) {
    return objc_autorelease(object);
}

Object* objc_retainAutoreleaseReturnValue(Object* object) {
    return objc_retainAutorelease(object);
}

Object* objc_retainAutoreleasedReturnValue(Object* object) {
    return objc_retain(object);
}

Object* objc_unsafeClaimAutoreleasedReturnValue(Object* object) {
    return object;
}

void objc_storeStrong(Object** place, Object* object) {
    Object* const before = *place;
    if (before == object)
        return;
    *place = objc_retain(object);
    objc_release(before);
}

Object* objc_storeWeak(Object** place, Object* object) {
    const std::lock_guard hold{lock()};
    forget(place);
    *place = object;
    if (object == nullptr || isTagged(object) || isBlock(object) || isImmortal(object))
        return object;
    // Apple's runtime aborts here as well.
    if (header(object)->references >= deallocating / 2)
        fail("weak reference made to an object in its dealloc:", object->isa->name);
    header(object)->isWeaklyHeld = true;
    weakPlaces()[object].insert(place);
    return object;
}

Object* objc_initWeak(Object** place, Object* object) {
    *place = nullptr;
    return objc_storeWeak(place, object);
}

void objc_destroyWeak(Object** place) {
    const std::lock_guard hold{lock()};
    forget(place);
    *place = nullptr;
}

Object* objc_loadWeakRetained(Object** place) {
    const std::lock_guard hold{lock()};
    return objc_retain(*place);
}

Object* objc_loadWeak(Object** place) {
    return objc_autorelease(objc_loadWeakRetained(place));
}

void objc_copyWeak(Object** to, Object** from) {
    const std::lock_guard hold{lock()};
    objc_initWeak(to, *from);
}

void objc_moveWeak(Object** to, Object** from) {
    objc_copyWeak(to, from);
    objc_destroyWeak(from);
}
}
