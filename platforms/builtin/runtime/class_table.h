// How the platform's classes are declared: a table per class, walked by one registration routine.
//
//     ClassTable tableOfNSThing() {
//         static const MethodEntry methods[] = {method("length", length), ...};
//         return {classTable<Thing>("NSThing", &Root::cls), methods, classMethods};
//     }
//
// This is the one place where typed functions become IMPs.
#pragma once

#include "runtime/object.h"

#include <new>

namespace chroma::builtin {

struct MethodEntry {
    const char* selector;
    IMP implementation;
    std::size_t arguments; // as many as the selector has colons
};

// A method is a plain function of the receiver, as any struct that an object of the class is, the selector and the arguments. A
// class method's receiver is a ClassObject.
template <class R, class Self, class... Arguments>
MethodEntry method(const char* selector, R (*function)(Self*, SEL, Arguments...)) {
    return {selector, reinterpret_cast<IMP>(function), sizeof...(Arguments)};
}

struct MethodEntries {
    const MethodEntry* entries = nullptr;
    std::size_t count = 0;

    constexpr MethodEntries() = default;
    constexpr MethodEntries(const MethodEntry* start, std::size_t size) : entries(start), count(size) {}
    template <std::size_t Size>
    constexpr MethodEntries(const MethodEntry (&array)[Size]) : entries(array), count(Size) {}
};

struct ClassTable {
    ClassObject* cls;
    const char* name;
    ClassObject* superclass; // null for the root
    std::size_t instanceSize;
    void (*construct)(void* memory);
    void (*destroy)(Object* object);
    MethodEntries methods;
    MethodEntries classMethods;
};

// The table of a class whose instances are `Instance`s. `Instance::cls` is the class object.
template <class Instance>
ClassTable classTable(const char* name, ClassObject* superclass, MethodEntries methods, MethodEntries classMethods = {}) {
    return {&Instance::cls,
            name,
            superclass,
            sizeof(Instance),
            [](void* memory) { new (memory) Instance; },
            [](Object* object) { static_cast<Instance*>(object)->~Instance(); },
            methods,
            classMethods};
}

// More methods of a class, declared in a file of their own.
struct Category {
    ClassObject* cls;
    MethodEntries methods;
    MethodEntries classMethods;
};

// Fills in the class and makes its metaclass. The superclass must have been registered.
void registerClass(const ClassTable& table);

void registerCategory(const Category& category);

} // namespace chroma::builtin
