// What becomes of exhausted memory. Inside the platform it is a C++ exception, so that destructors run; at its edges, which
// are the methods and the exported functions, it ends.
#pragma once

#include <new>
#include <stdexcept>

namespace chroma::builtin {

// Throws an NSMallocException that was made beforehand. Nothing with a destructor may be alive in the frames between.
[[noreturn]] void raiseMemoryExhausted();

// The body's answer, or that of `otherwise` when memory was exhausted meanwhile. It runs when the C++ exception is gone, so
// it may throw a native one.
template <class Body, class Otherwise>
auto orExhausted(Body body, Otherwise otherwise) -> decltype(body()) {
    try {
        return body();
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return otherwise();
}

// For functions whose answer is null, or zero, when there is no memory for another.
template <class Body>
auto orNull(Body body) -> decltype(body()) {
    return orExhausted(body, [] { return decltype(body())(); });
}

} // namespace chroma::builtin
