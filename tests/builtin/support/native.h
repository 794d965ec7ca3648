// Messages and exceptions for the tests of the builtin platform, over its C interface alone.
#pragma once

#include "builtin/constants.h"
#include "builtin/corefoundation.h"
#include "builtin/introspection.h"
#include "builtin/objc_runtime.h"

#include "messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

namespace chroma::test {

// A new autoreleased object, nil when its initialiser answers nil.
template <class... Arguments>
id made(const char* className, const char* initializer, Arguments... arguments) {
    return send(send(sendClass(className, "alloc"), initializer, arguments...), "autorelease");
}

// A function as an IMP. It takes the receiver, the selector and the arguments.
template <class R, class... Arguments>
IMP implementation(R (*function)(id, SEL, Arguments...)) {
    return reinterpret_cast<IMP>(function);
}

#if defined(__LP64__)
template <class Body>
id caught(Body body) {
    try {
        body();
    } catch (const ThrownObject thrown) {
        return reinterpret_cast<id>(thrown);
    }
    return nullptr;
}
#else
// What an exception guard looks like to the runtime.
struct Guard {
    void* buffer[5];
    void* runtimeWords[4];
};

// The object that the body throws, nil when it throws none. The body must not keep anything with a destructor alive while it
// sends messages.
template <class Body>
id caught(Body body) {
    Guard guard;
    objc_exception_try_enter(&guard);
    if (__builtin_setjmp(guard.buffer) != 0) return objc_exception_extract(&guard);
    body();
    objc_exception_try_exit(&guard);
    return nullptr;
}
#endif

// An autorelease pool for a scope.
struct Pool {
    id pool = sendClass("NSAutoreleasePool", "new");

    Pool() = default;
    Pool(const Pool&) = delete;
    ~Pool() { drain(); }
    void drain() { send<void>(std::exchange(pool, nullptr), "drain"); }
};

// A pool around a case, behind which nothing may be alive.
class PlatformTest : public testing::Test {
protected:
    void TearDown() override;

    Pool pool;
};

// Autoreleased data with the bytes, and back: "" for nil.
id dataOf(std::string_view bytes);
std::string bytesOf(id data);

// What the body raises, as "name: reason", and "" when it raises nothing.
template <class Body>
std::string raised(Body body) {
    const id exception = caught(body);
    return exception ? textOf(send(exception, "name")) + ": " + textOf(send(exception, "reason")) : "";
}

// Whether the body raises an exception of the name.
template <class Body>
bool raises(const char* name, Body body) {
    return textOf(send(caught(body), "name")) == name;
}

template <class Body>
bool refuses(Body body) {
    return raises("NSInvalidArgumentException", body);
}

// As an image has it.
struct Size {
    CGFloat width;
    CGFloat height;
};

// A colour by the message that makes it, as "redColor".
template <class... Arguments>
id color(const char* factory, Arguments... arguments) {
    return sendClass("NSColor", factory, arguments...);
}

id calibratedRGB(float red, float green, float blue, float alpha = 1);
id standardSpace(const char* message);

// Of any sequence of components.
template <class Components = std::initializer_list<float>>
id colorIn(id space, const Components& components) {
    CGFloat values[32]; // no vector: it may throw
    std::copy(std::begin(components), std::end(components), values);
    const auto count = static_cast<std::intptr_t>(std::size(components));
    return color("colorWithColorSpace:components:count:", space, static_cast<const CGFloat*>(values), count);
}

std::vector<float> componentsOf(id color);
void expectNear(const std::vector<float>& actual, const std::vector<float>& expected, double tolerance);

// The colour in another space, which is named by its message or by its constant; nil when it cannot be converted.
id inSpace(id color, const char* space);
id named(id color, const char* name);

} // namespace chroma::test
