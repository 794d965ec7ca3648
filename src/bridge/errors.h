// Every failure reaches host code as a host exception, and this is where they are raised. Raising records the exception and
// returns: the caller goes on to its null result.
#pragma once

#include "platform/objc.h"

#include <cstdint>

namespace chroma {

// Raises a host exception of the named class, "RuntimeException" where the host has no such class, with the UTF-8 message
// and "ErrorNumber" 0. A null message is the empty one. Raises nothing when the host can make neither class.
void RaiseException(const char* className, const char* message);

// Raises an "OutOfBoundsException" that words `value` as outside `minimum` to `limit` - 1. A null parameter name reads "?",
// a null or empty method name is left out.
void RaiseOutOfBoundsException(std::int64_t value, std::int64_t minimum, std::int64_t limit, const char* parameterName,
                               const char* methodName);

// Raises the host exception for the C++ exception being handled; only to be called from a catch block.
void raiseCaughtException();

// Raises the host exception for a thrown object that is an NSException: the one that the sibling plugin makes of it, or,
// where no sibling answers, a "RuntimeException" whose message is its name, a colon and its reason. Throws any other object
// on.
void raisePlatformException(id thrown);

// Runs the body; a C++ exception out of it becomes a host exception.
template <class Body>
void translated(Body body) {
    try {
        body();
    } catch (...) {
        raiseCaughtException();
    }
}

} // namespace chroma
