// Exhausted memory. Inside the platform it is a C++ exception, so destructors run. The platform's edges, methods and
// exported functions, catch it.
#pragma once

#include <new>
#include <stdexcept>

namespace chroma::builtin {

// Throws a preallocated NSMallocException. No object with a destructor may be alive in the frames between.
[[noreturn]] void raiseMemoryExhausted();

// Returns the body's result, or the result of `otherwise` if memory was exhausted. `otherwise` runs after the C++ exception
// has ended, so it may throw a native one.
template <class Body, class Otherwise>
auto orExhausted(Body body, Otherwise otherwise) -> decltype(body()) {
    try {
        return body();
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return otherwise();
}

// For functions that return null or zero when memory is exhausted.
template <class Body>
auto orNull(Body body) -> decltype(body()) {
    return orExhausted(body, [] { return decltype(body())(); });
}

} // namespace chroma::builtin
