// Native exceptions: catching them, throwing them again, and cleaning up when one propagates.
//
// In 64 bits a native exception unwinds the stack. In 32 bits it is a plain jump, which runs no destructors. The code above
// this folder serves both, so it follows one rule: nothing with a non-trivial destructor lives across a native message.
// `withCleanup` and `onThrow` release what must not leak: they hold an inner guard and throw the exception again.
//
// A C++ exception closes every guard that it passes and propagates unchanged.
#pragma once

#include "platform/objc.h"

#include <cstdint>

namespace chroma {

// What `catchNative` returns for a thrown nil. It is not an object: pass it only to the two functions below.
inline id thrownNil() { return reinterpret_cast<id>(std::uintptr_t{1}); }

// Throws a caught exception to the next enclosing guard, which may be a host's or another plugin's.
[[noreturn]] void throwNative(id thrown);

// Returns whether a caught object is an NSException or of a derived class. Sends it no message, because its class may
// respond to none.
bool isNSException(id thrown);

// Runs the body under a guard. Returns nil if the body returned, or the thrown object if a native exception ended it. The
// guard is closed in both cases. The caller's variables keep what the body wrote.
template <class Body>
id catchNative(Body& body);

#if defined(CHROMA_THROWS_CXX)
// The type that the platform throws, by value: the address of the object.
enum class ThrownObject : std::uintptr_t;

template <class Body>
[[gnu::always_inline]] inline id catchNative(Body& body) {
    try {
        body();
        return nullptr;
    } catch (const ThrownObject thrown) {
        return thrown == ThrownObject{} ? thrownNil() : reinterpret_cast<id>(thrown);
    }
}
#else
// The guard on platforms where it cannot be C++. Calls body(context) through a pointer and returns `nothing` for a thrown
// nil. It has C linkage, because one of its two definitions is Objective-C.
extern "C" id chroma_guard_run(void (*body)(void*), void* context, id nothing);

template <class Body>
id catchNative(Body& body) {
    return chroma_guard_run([](void* context) { (*static_cast<Body*>(context))(); }, &body, thrownNil());
}
#endif

// Runs the body and drops an NSException that ends it. Returns whether the body completed. Throws any other object again.
template <class Body>
[[gnu::always_inline]] inline bool quiet(Body&& body) {
    if (const id thrown = catchNative(body); __builtin_expect(thrown != nullptr, 0)) {
        if (!isNSException(thrown)) throwNative(thrown);
        return false;
    }
    return true;
}

// Runs the body. If a native or a C++ exception ends it, runs the cleanup, and the exception propagates. A cleanup that
// calls the host may throw a C++ exception, which then replaces the first one. It must not throw a native one.
template <class Body, class Cleanup>
void onThrow(Body body, Cleanup cleanup) {
    id thrown = nullptr;
    try {
        thrown = catchNative(body);
    } catch (...) {
        cleanup();
        throw;
    }
    if (!thrown) return;
    cleanup();
    throwNative(thrown);
}

// Runs the body, then the cleanup on every path; an exception propagates afterwards.
template <class Body, class Cleanup>
void withCleanup(Body body, Cleanup cleanup) {
    onThrow(body, cleanup);
    cleanup();
}

} // namespace chroma
