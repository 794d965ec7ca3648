// The memory layout of objects, classes and selectors.
//
// An object is a C++ struct derived from Object. Its class knows its size and how to construct and destroy it, so members
// may be of any C++ type. Classes and constant strings are constant-initialised: they exist as soon as the library is
// mapped. Registration fills in the rest.
#pragma once

#include "builtin/objc_runtime.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace chroma::builtin {

struct ClassObject;
struct DispatchTable;

// The retain count of an object that is never freed.
constexpr std::int32_t immortal = -1;

} // namespace chroma::builtin

namespace chroma {

struct Object {
    constexpr Object() = default;
    constexpr Object(builtin::ClassObject* cls, std::int32_t count) : isa(cls), retainCount(count) {}

    builtin::ClassObject* isa = nullptr;
    std::atomic<std::int32_t> retainCount{1};
};

// The index counts up from 0 without gaps: dispatch tables are arrays.
struct SelectorEntry {
    const char* name;
    std::uint32_t index;
};

// One of a class's own methods. Records are never freed and never move; only the function changes.
struct MethodRecord {
    SEL selector;
    IMP implementation;
    const char* types; // null if the method was added without types
    builtin::ClassObject* owner;
    MethodRecord* next;
};

} // namespace chroma

namespace chroma::builtin {

// The functions of one class by selector index, inherited ones included, filled in as they are used. The slots follow the
// struct in memory.
struct DispatchTable {
    std::uint32_t size;
    DispatchTable* outgrown; // the table that this one replaced; a reader may still use it

    std::atomic<IMP>* slots() { return reinterpret_cast<std::atomic<IMP>*>(this + 1); }
};

inline DispatchTable emptyDispatchTable{0, nullptr};

struct ClassObject : Object {
    constexpr ClassObject() : Object(nullptr, immortal) {}

    const char* name = nullptr;
    ClassObject* superclass = nullptr;
    ClassObject* next = nullptr; // the registered classes and metaclasses form one list
    MethodRecord* methods = nullptr;
    std::atomic<DispatchTable*> dispatch{&emptyDispatchTable};
    bool isMeta = false;

    // Of instances. Construction runs on zeroed memory.
    std::size_t instanceSize = 0;
    void (*construct)(void* memory) = nullptr;
    void (*destroy)(Object* object) = nullptr;
    std::atomic<std::intptr_t> liveInstances{0};
};

// Returns whether `cls` is `ancestor` or descends from it.
inline bool descendsFrom(const ClassObject* cls, const ClassObject* ancestor) {
    while (cls && cls != ancestor)
        cls = cls->superclass;
    return cls != nullptr;
}

inline bool isKindOf(const Object* object, const ClassObject& cls) { return object && descendsFrom(object->isa, &cls); }

// Returns the object as a class, or null if it is not one.
inline ClassObject* asClass(id object) {
    const bool isClass = object && object->isa->isMeta;
    return isClass ? static_cast<ClassObject*>(object) : nullptr;
}

} // namespace chroma::builtin
