// Blocks and the variables that they share with the frame that creates them, following Clang's
// documented block ABI.
#include "Runtime/Internal.hpp"

#include <cstdlib>
#include <cstring>

using namespace paper::rt;

namespace {

// Flag bits of blocks and shared variables.
constexpr int countMask = 0xfffe;
constexpr int needsFree = 1 << 24;
constexpr int hasHelpers = 1 << 25;
constexpr int isGlobal = 1 << 28;
// A single reference: bit 0 is not part of the count.
constexpr int one = 2;

// The kind of a captured variable, in the low byte of a helper's flags.
constexpr int kindMask = 0xff;
constexpr int object = 3;
constexpr int block = 7;
constexpr int shared = 8;
constexpr int weaklyShared = 24;

struct Descriptor {
    unsigned long reserved;
    unsigned long size;
};

struct Helpers {
    void (*copy)(void*, const void*);
    void (*dispose)(const void*);
};

struct Block {
    void* isa;
    std::atomic<int> flags;
    int reserved;
    void (*invoke)();
    Descriptor* descriptor;
};

Helpers* helpersOf(const Block* literal) {
    return reinterpret_cast<Helpers*>(reinterpret_cast<char*>(literal->descriptor) +
                                      sizeof(Descriptor));
}

/// A `__block` variable.
struct SharedVariable {
    void* isa;
    SharedVariable* forwarding;
    std::atomic<int> flags;
    unsigned size;
};

struct SharedHelpers {
    void (*keep)(void*, void*);
    void (*destroy)(void*);
};

SharedVariable* keepShared(const void* captured) {
    auto* const source = static_cast<SharedVariable*>(const_cast<void*>(captured));
    if ((source->forwarding->flags & countMask) != 0) {
        source->forwarding->flags += one;
        return source->forwarding;
    }
    auto* const copy = static_cast<SharedVariable*>(std::malloc(source->size));
    std::memcpy(static_cast<void*>(copy), source, source->size);
    // Referenced by the frame and by the block.
    copy->flags = source->flags | needsFree | (2 * one);
    copy->forwarding = copy;
    source->forwarding = copy;
    if ((source->flags & hasHelpers) != 0)
        reinterpret_cast<SharedHelpers*>(source + 1)->keep(copy, source);
    return copy;
}

void dropShared(const void* captured) {
    auto* const variable = static_cast<SharedVariable*>(const_cast<void*>(captured))->forwarding;
    if ((variable->flags & needsFree) == 0)
        return;
    if (((variable->flags -= one) & countMask) != 0)
        return;
    if ((variable->flags & hasHelpers) != 0)
        reinterpret_cast<SharedHelpers*>(variable + 1)->destroy(variable);
    std::free(variable);
}

}

extern "C" {

void* _NSConcreteStackBlock[sizeof(Class) / sizeof(void*)];
void* _NSConcreteGlobalBlock[sizeof(Class) / sizeof(void*)];
void* _NSConcreteMallocBlock[sizeof(Class) / sizeof(void*)];

void* _Block_copy(const void* literal) {
    auto* const source = static_cast<Block*>(const_cast<void*>(literal));
    if (source == nullptr || (source->flags & isGlobal) != 0)
        return source;
    if ((source->flags & needsFree) != 0) {
        source->flags += one;
        return source;
    }
    auto* const copy = static_cast<Block*>(std::malloc(source->descriptor->size));
    std::memcpy(static_cast<void*>(copy), source, source->descriptor->size);
    copy->isa = _NSConcreteMallocBlock;
    copy->flags = (source->flags & ~countMask) | needsFree | one;
    if ((copy->flags & hasHelpers) != 0)
        helpersOf(copy)->copy(copy, source);
    return copy;
}

void _Block_release(const void* literal) {
    auto* const held = static_cast<Block*>(const_cast<void*>(literal));
    if (held == nullptr || (held->flags & needsFree) == 0)
        return;
    if (((held->flags -= one) & countMask) != 0)
        return;
    if ((held->flags & hasHelpers) != 0)
        helpersOf(held)->dispose(held);
    std::free(held);
}

void _Block_object_assign(void* to, const void* from, int flags) {
    switch (flags & kindMask) {
    case object:
        *static_cast<Object**>(to) = objc_retain(static_cast<Object*>(const_cast<void*>(from)));
        return;
    case block:
        *static_cast<void**>(to) = _Block_copy(from);
        return;
    case shared:
    case weaklyShared:
        *static_cast<SharedVariable**>(to) = keepShared(from);
        return;
    default:
        // The content of a shared variable is managed by its own helpers.
        *static_cast<const void**>(to) = from;
    }
}

void _Block_object_dispose(const void* captured, int flags) {
    switch (flags & kindMask) {
    case object:
        return objc_release(static_cast<Object*>(const_cast<void*>(captured)));
    case block:
        return _Block_release(captured);
    case shared:
    case weaklyShared:
        return dropShared(captured);
    default:
        return;
    }
}

Object* objc_retainBlock(Object* literal) {
    return static_cast<Object*>(_Block_copy(literal));
}
}

namespace paper::rt {

bool isBlock(const Object* candidate) {
    const void* const isa = candidate->isa;
    return isa == _NSConcreteStackBlock || isa == _NSConcreteGlobalBlock ||
           isa == _NSConcreteMallocBlock;
}

void loadBlockClasses(Class* blockClass) {
    for (void** const isa :
         {_NSConcreteStackBlock, _NSConcreteGlobalBlock, _NSConcreteMallocBlock}) {
        std::memcpy(static_cast<void*>(isa), blockClass, sizeof(Class));
        auto* const klass = reinterpret_cast<Class*>(isa);
        klass->table = new ClassTable;
        klass->superclass = blockClass;
    }
}

Object* copyBlock(const Object* literal) {
    return static_cast<Object*>(_Block_copy(literal));
}

void releaseBlock(Object* literal) {
    _Block_release(literal);
}

}
