// The declaration of the platform's classes: one table per class, walked by one registration routine.
//
//     ClassTable tableOfNSThing() {
//         static const MethodEntry methods[] = {method<length>("length"), ...};
//         return {classTable<Thing>("NSThing", &Root::cls), methods, classMethods};
//     }
//
// Only this file turns typed functions into IMPs, and turns exhausted memory (a C++ exception inside the platform) into a
// native exception. No C++ exception leaves a message.
#pragma once

#include "runtime/exhaustion.h"
#include "runtime/lifetime.h"
#include "runtime/type_encoding.h"

#include <new>

namespace chroma::builtin {

struct MethodEntry {
    const char* selector;
    IMP implementation;
    const char* types;
    std::size_t arguments; // one per colon of the selector
};

template <auto function>
struct Method;

// A method is a plain function. Its parameters are the receiver (any struct that the class's objects are), the selector and
// the arguments. A class method's receiver is a ClassObject.
template <class R, class Self, class... Arguments, R (*function)(Self*, SEL, Arguments...)>
struct Method<function> {
    static constexpr auto types = encodedTypes<R, Arguments...>();
    static constexpr std::size_t arguments = sizeof...(Arguments);

    static R call(Self* self, SEL selector, Arguments... given) {
        const auto body = [&] { return function(self, selector, given...); };
        return orExhausted(body, []() -> R { raiseMemoryExhausted(); });
    }

    // An initialiser that throws releases its receiver.
    static R initialise(Self* self, SEL selector, Arguments... given) {
        const auto body = [&] { return function(self, selector, given...); };
        return orExhausted(body, [self]() -> R {
            release(self);
            raiseMemoryExhausted();
        });
    }
};

template <auto function>
MethodEntry method(const char* selector) {
    using Typed = Method<function>;
    return {selector, reinterpret_cast<IMP>(Typed::call), Typed::types.data(), Typed::arguments};
}

template <auto function>
MethodEntry initialiser(const char* selector) {
    using Typed = Method<function>;
    return {selector, reinterpret_cast<IMP>(Typed::initialise), Typed::types.data(), Typed::arguments};
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

// Returns the table of a class whose instances are `Instance`s. `Instance::cls` is the class object.
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

// Additional methods of a class, declared in another file.
struct Category {
    ClassObject* cls;
    MethodEntries methods;
    MethodEntries classMethods;
};

// Fills in the class and creates its metaclass. The superclass must be registered.
void registerClass(const ClassTable& table);

void registerCategory(const Category& category);

} // namespace chroma::builtin
