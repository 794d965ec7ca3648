// Building blocks of the works.
#pragma once

#include "cases.h"

#include "builtin/objc_runtime.h"
#include "values/platform.h"

namespace bench {

using chroma::id;
using chroma::SEL;

// Sends a message as directly as C++ can.
template <class R, class... Arguments>
R send(id receiver, SEL selector, Arguments... arguments) {
    return reinterpret_cast<R (*)(id, SEL, Arguments...)>(chroma::objc_msg_lookup(receiver, selector))(receiver, selector,
                                                                                                       arguments...);
}

inline SEL selector(const char* name) { return chroma::sel_registerName(name); }

// Prevents the compiler from removing work whose result is unused.
template <class Value>
void use(Value& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

// Returns work that runs the body `times` times under one autorelease pool.
template <class Body>
Work repeated(Body body) {
    return [body](std::size_t times) {
        const host::platform::AutoreleasePool pool;
        for (std::size_t i = 0; i < times; ++i)
            body();
    };
}

} // namespace bench
