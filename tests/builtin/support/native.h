// Messages and exceptions for the tests of the builtin platform, through its C interface only.
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

// Returns a new autoreleased object, or nil if its initialiser returns nil.
template <class... Arguments>
id created(const char* className, const char* initializer, Arguments... arguments) {
    return send(send(sendClass(className, "alloc"), initializer, arguments...), "autorelease");
}

// Returns a function as an IMP. The function takes the receiver, the selector and the arguments.
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
// An exception guard as the runtime expects it.
struct Guard {
    void* buffer[5];
    void* runtimeWords[4];
};

// Returns the object that the body throws, or nil if it throws none. The body must not keep objects with destructors alive
// while it sends messages.
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

// Wraps an autorelease pool around each case. After the pool is drained no object may be alive.
class PlatformTest : public testing::Test {
protected:
    void TearDown() override;

    Pool pool;
};

// Return autoreleased data with the bytes, and the bytes of data ("" for nil).
id dataOf(std::string_view bytes);
std::string bytesOf(id data);

// Returns the exception that the body raises as "name: reason", or "" if it raises none.
template <class Body>
std::string raised(Body body) {
    const id exception = caught(body);
    return exception ? textOf(send(exception, "name")) + ": " + textOf(send(exception, "reason")) : "";
}

// Returns whether the body raises an exception with the name.
template <class Body>
bool raises(const char* name, Body body) {
    return textOf(send(caught(body), "name")) == name;
}

template <class Body>
bool refuses(Body body) {
    return raises("NSInvalidArgumentException", body);
}

// The size of an image.
struct Size {
    CGFloat width;
    CGFloat height;
};

// Returns the colour that the factory message creates, for example "redColor".
template <class... Arguments>
id color(const char* factory, Arguments... arguments) {
    return sendClass("NSColor", factory, arguments...);
}

id calibratedRGB(float red, float green, float blue, float alpha = 1);
id standardSpace(const char* message);

// Returns a colour in the space from any sequence of components.
template <class Components = std::initializer_list<float>>
id colorIn(id space, const Components& components) {
    CGFloat values[32]; // not a vector, because the message may throw
    std::copy(std::begin(components), std::end(components), values);
    const auto count = static_cast<std::intptr_t>(std::size(components));
    return color("colorWithColorSpace:components:count:", space, static_cast<const CGFloat*>(values), count);
}

std::vector<float> componentsOf(id color);
void expectNear(const std::vector<float>& actual, const std::vector<float>& expected, double tolerance);

// Return the colour in another space, named by the space's message or constant, or nil if it cannot be converted.
id inSpace(id color, const char* space);
id named(id color, const char* name);

} // namespace chroma::test
