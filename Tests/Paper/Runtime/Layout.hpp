/// The tables that Clang emits for -fobjc-runtime=gnustep-2.0, as far as this runtime uses them.
/// The order and size of all members are the compiler's.
#pragma once

#include <cstdint>

namespace paper::rt {

struct Class;
struct ClassTable;

struct Object {
    Class* isa;
};

struct Selector {
    const char* name;
    const char* types;
};

using Code = void (*)();

struct Method {
    Code code;
    Selector* selector;
    const char* types;
};

struct MethodList {
    MethodList* next;
    int count;
    long size;
    Method methods[1];
};

struct Ivar {
    const char* name;
    const char* type;
    int* offset;
    unsigned size;
    unsigned flags;
};

struct IvarList {
    int count;
    long size;
    Ivar ivars[1];
};

struct ProtocolList;

struct Protocol {
    void* isa;
    const char* name;
    ProtocolList* protocols;
};

struct ProtocolList {
    ProtocolList* next;
    long count;
    Protocol* items[1];
};

struct Class {
    Class* isa;
    Class* superclass;
    const char* name;
    long version;
    /// Bit 0 is set for metaclasses.
    unsigned long info;
    long instanceSize;
    IvarList* ivars;
    MethodList* methods;
    /// Reserved for the runtime's own table; null until the class is loaded.
    ClassTable* table;
    void* construct;
    void* destruct;
    Class* subclasses;
    Class* sibling;
    ProtocolList* protocols;
    void* extra;
    long abi;
    void* properties;
};

struct Category {
    const char* name;
    const char* className;
    MethodList* instanceMethods;
    MethodList* classMethods;
    ProtocolList* protocols;
    void* properties;
    void* classProperties;
};

/// The result of a message look-up: the caller reads `code`.
struct Slot {
    Class* owner;
    Class* cachedFor;
    const char* types;
    int version;
    Code code;
};

struct Super {
    Object* receiver;
    Class* superclass;
};

/// Passed to `__objc_load` once for each linked image.
struct Image {
    std::uint64_t version;
    Selector* selectors;
    Selector* selectorsEnd;
    Class** classes;
    Class** classesEnd;
    Class** classReferences;
    Class** classReferencesEnd;
    Category* categories;
    Category* categoriesEnd;
    void* unread[8];
};

}
