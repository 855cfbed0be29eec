// Loads the classes of an image, lays out their instances, and creates and frees those.
#include "Runtime/Internal.hpp"
#include "Runtime/Runtime.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

namespace paper::rt {
namespace {

// Never freed: the leak check runs after all static destructors.
std::map<std::string, Class*, std::less<>>& classes() {
    static auto& all = *new std::map<std::string, Class*, std::less<>>;
    return all;
}

Class* shortString = nullptr;

void addMethods(Class* klass, const MethodList* list) {
    for (; list != nullptr; list = list->next) {
        for (int index = 0; index < list->count; ++index) {
            const Method& method = list->methods[index];
            klass->table->own[method.selector->name] = {klass, klass, method.types, 1, method.code};
        }
    }
}

long roundedUp(long size, long alignment) {
    return (size + alignment - 1) / alignment * alignment;
}

/// The compiler's offsets are relative to the superclass as it was at compile time; this moves the
/// variables to follow the actual superclass.
void layOutInstances(Class* klass) {
    long cursor = klass->superclass != nullptr ? klass->superclass->instanceSize : 0;
    const int count = klass->ivars != nullptr ? klass->ivars->count : 0;
    for (int index = 0; index < count; ++index) {
        const Ivar& ivar = klass->ivars->ivars[index];
        cursor = roundedUp(cursor, 1L << (ivar.flags >> 3U));
        *ivar.offset = static_cast<int>(cursor);
        cursor += ivar.size;
    }
    klass->instanceSize = roundedUp(cursor, alignof(void*));
}

void load(Class* klass) {
    if (klass->table != nullptr)
        return;
    Class* const superclass = klass->superclass;
    if (superclass != nullptr)
        load(superclass);
    Class* const metaclass = klass->isa;
    klass->table = new ClassTable;
    metaclass->table = new ClassTable;
    metaclass->table->isImmortal = true;
    const Class* root = klass;
    while (root->superclass != nullptr)
        root = root->superclass;
    metaclass->isa = root->isa;
    metaclass->superclass = superclass != nullptr ? superclass->isa : klass;
    layOutInstances(klass);
    addMethods(klass, klass->methods);
    addMethods(metaclass, metaclass->methods);
    classes()[klass->name] = klass;
}

void addCategory(const Category& category) {
    if (category.className == nullptr)
        return;
    Class* const klass = classNamed(category.className);
    if (klass == nullptr)
        fail("category of an unknown class:", category.className);
    addMethods(klass, category.instanceMethods);
    addMethods(klass->isa, category.classMethods);
}

/// The classes from the root to `klass`, since C++ members of a superclass are constructed first.
std::vector<Class*> lineage(Class* klass) {
    std::vector<Class*> all;
    for (; klass != nullptr; klass = klass->superclass)
        all.insert(all.begin(), klass);
    return all;
}

void callOwn(Class* klass, std::string_view selector, Object* object) {
    const auto found = klass->table->own.find(selector);
    if (found != klass->table->own.end())
        reinterpret_cast<void (*)(Object*, Selector*)>(found->second.code)(object, nullptr);
}

bool lists(const ProtocolList* list, std::string_view name) {
    for (; list != nullptr; list = list->next) {
        for (long index = 0; index < list->count; ++index) {
            const Protocol* const protocol = list->items[index];
            if (protocol->name == name || lists(protocol->protocols, name))
                return true;
        }
    }
    return false;
}

}

void fail(const char* why, const char* what) {
    std::fprintf(stderr, "paper runtime: %s %s\n", why, what);
    std::abort();
}

std::recursive_mutex& lock() {
    static auto& mutex = *new std::recursive_mutex;
    return mutex;
}

Class* classNamed(std::string_view name) {
    const std::lock_guard hold{lock()};
    const auto found = classes().find(name);
    return found == classes().end() ? nullptr : found->second;
}

Class* classOf(const Object* object) {
    return isTagged(object) ? shortString : object->isa;
}

bool isKind(const Class* klass, const Class* ancestor) {
    for (; klass != nullptr; klass = klass->superclass)
        if (klass == ancestor)
            return true;
    return false;
}

bool conforms(const Class* klass, std::string_view protocol) {
    for (; klass != nullptr; klass = klass->superclass)
        if (lists(klass->protocols, protocol))
            return true;
    return false;
}

Slot* implementation(Class* klass, std::string_view selector) {
    const std::lock_guard hold{lock()};
    for (; klass != nullptr; klass = klass->superclass) {
        if (klass->table == nullptr)
            fail("class used before it was loaded:", klass->name);
        const auto found = klass->table->own.find(selector);
        if (found != klass->table->own.end())
            return &found->second;
    }
    return nullptr;
}

void forget(std::string_view className, std::string_view selector) {
    const std::lock_guard hold{lock()};
    Class* const klass = classNamed(className);
    if (klass == nullptr)
        fail("no class to forget a method of:", std::string{className}.c_str());
    klass->table->found.clear();
    if (const auto known = klass->table->own.find(selector); known != klass->table->own.end())
        klass->table->own.erase(known);
    else
        fail("no method to forget:", std::string{selector}.c_str());
}

Object* allocate(Class* klass) {
    void* const memory = std::calloc(1, headerSize + static_cast<std::size_t>(klass->instanceSize));
    new (memory) Header{1, false};
    auto* const object = reinterpret_cast<Object*>(static_cast<char*>(memory) + headerSize);
    object->isa = klass;
    ++klass->table->live;
    for (Class* const ancestor : lineage(klass))
        callOwn(ancestor, ".cxx_construct", object);
    return object;
}

void dispose(Object* object) {
    for (Class* klass = object->isa; klass != nullptr; klass = klass->superclass)
        callOwn(klass, ".cxx_destruct", object);
    --object->isa->table->live;
    std::free(header(object));
}

std::map<std::string, long> liveObjects() {
    const std::lock_guard hold{lock()};
    std::map<std::string, long> counts;
    for (const auto& [name, klass] : classes())
        if (const long count = klass->table->live; count != 0)
            counts[name] = count;
    return counts;
}

long liveObjects(std::string_view className) {
    const Class* const klass = classNamed(className);
    return klass == nullptr ? 0 : klass->table->live.load();
}

}

using namespace paper::rt;

extern "C" void __objc_load(Image* image) {
    const std::lock_guard hold{lock()};
    adoptSelectors(image->selectors, image->selectorsEnd);
    for (Class** klass = image->classes; klass < image->classesEnd; ++klass)
        if (*klass != nullptr)
            load(*klass);
    for (const Category* category = image->categories; category < image->categoriesEnd; ++category)
        addCategory(*category);
    shortString = classNamed("PaperShortString");
    for (const char* const name : {"NSConstantString", "PaperCFString", "PaperShortString"})
        if (Class* const klass = classNamed(name); klass != nullptr)
            klass->table->isImmortal = true;
    if (Class* const block = classNamed("PaperBlock"); block != nullptr)
        loadBlockClasses(block);
}
