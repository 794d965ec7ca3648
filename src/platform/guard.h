// Native exceptions: catching them, throwing them on, and cleaning up when one passes.
//
// In 64 bits a native exception unwinds the stack, in 32 bits it is a plain jump, which runs no destructors. The code above
// this folder serves both, so it follows one rule: nothing with a non-trivial destructor lives across a native message. What
// must be given up when one throws is given up by `withCleanup` or `onThrow`, which hold an inner guard of their own and
// throw on.
//
// A C++ exception closes every guard that it passes and goes on outward unchanged.
#pragma once

#include "platform/objc.h"

#include <cstdint>

namespace chroma {

// What `catchNative` answers for a thrown nil: no object, and only for the two functions below.
inline id thrownNil() { return reinterpret_cast<id>(std::uintptr_t{1}); }

// Throws what was caught to the next enclosing guard, perhaps a host's or another plugin's.
[[noreturn]] void throwNative(id thrown);

// Whether what was caught is an NSException or of a class that descends from it. Sends it no message: it may be of a class
// that answers none.
bool isNSException(id thrown);

// Runs the body under a guard. Answers nil when it returned and the thrown object when a native exception ended it; the
// guard is closed in either case. The caller's variables that the body writes keep what was written.
template <class Body>
id catchNative(Body& body);

#if defined(CHROMA_THROWS_CXX)
// What the platform throws, by value: the address of the object.
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
// The guard where it takes more than C++: body(context) is called through a pointer, and `nothing` answered for a thrown
// nil. The linkage is C's, since one of the two definitions is Objective-C.
extern "C" id chroma_guard_run(void (*body)(void*), void* context, id nothing);

template <class Body>
id catchNative(Body& body) {
    return chroma_guard_run([](void* context) { (*static_cast<Body*>(context))(); }, &body, thrownNil());
}
#endif

// Runs the body; when a native or a C++ exception ends it, runs the cleanup and lets the exception go on. A cleanup that
// calls a host may end by a C++ exception itself, which goes on in place of the first; a native one it must not throw.
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

// Runs the body, then the cleanup on every path; an exception goes on afterwards.
template <class Body, class Cleanup>
void withCleanup(Body body, Cleanup cleanup) {
    onThrow(body, cleanup);
    cleanup();
}

} // namespace chroma
