// What the works are made of.
#pragma once

#include "cases.h"

#include "builtin/objc_runtime.h"
#include "values/platform.h"

namespace bench {

using chroma::id;
using chroma::SEL;

// A message as bare as C++ can send it.
template <class R, class... Arguments>
R send(id receiver, SEL selector, Arguments... arguments) {
    return reinterpret_cast<R (*)(id, SEL, Arguments...)>(chroma::objc_msg_lookup(receiver, selector))(receiver, selector,
                                                                                                       arguments...);
}

inline SEL selector(const char* name) { return chroma::sel_registerName(name); }

// Keeps the compiler from leaving out work whose result nobody looks at.
template <class Value>
void use(Value& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

// The body `times` times, under one autorelease pool.
template <class Body>
Work repeated(Body body) {
    return [body](std::size_t times) {
        const host::platform::AutoreleasePool pool;
        for (std::size_t i = 0; i < times; ++i)
            body();
    };
}

} // namespace bench
