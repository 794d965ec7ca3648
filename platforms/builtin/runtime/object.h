// What an object, a class and a selector are in memory.
//
// An object is a C++ struct that descends from Object. Its class knows how large it is and how to construct and destroy it,
// so an object's members may be of any C++ type. All of this is constant-initialised: classes and constant strings exist as
// soon as the library is mapped, and registration only fills in what needs work.
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

// The index is dense, counted up from 0: dispatch tables are arrays.
struct SelectorEntry {
    const char* name;
    std::uint32_t index;
};

// One method of one class itself. Records are never freed and keep their place, only the function changes.
struct MethodRecord {
    SEL selector;
    IMP implementation;
    const char* types; // null where who added the method told none
    builtin::ClassObject* owner;
    MethodRecord* next;
};

} // namespace chroma

namespace chroma::builtin {

// The functions of one class by selector index, inherited ones included, as far as they have been asked for. The slots lie
// right behind the table.
struct DispatchTable {
    std::uint32_t size;
    DispatchTable* outgrown; // the table that this one took the place of; a reader may still be in it

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

    // Of instances; the construction runs on zeroed memory.
    std::size_t instanceSize = 0;
    void (*construct)(void* memory) = nullptr;
    void (*destroy)(Object* object) = nullptr;
    std::atomic<std::intptr_t> liveInstances{0};
};

// Whether `cls` is `ancestor` or descends from it.
inline bool descendsFrom(const ClassObject* cls, const ClassObject* ancestor) {
    while (cls && cls != ancestor) {
        cls = cls->superclass;
    }
    return cls != nullptr;
}

inline bool isKindOf(const Object* object, const ClassObject& cls) { return object && descendsFrom(object->isa, &cls); }

// The object as a class, null when it is none.
inline ClassObject* asClass(id object) {
    const bool isClass = object && object->isa->isMeta;
    return isClass ? static_cast<ClassObject*>(object) : nullptr;
}

} // namespace chroma::builtin
