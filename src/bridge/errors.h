// Every failure reaches host code as a host exception, and all of them are raised here. Raising only records the exception
// and returns; the caller then returns its null result.
#pragma once

#include "platform/guard.h"

#include <cstdint>

namespace chroma {

// Raises a host exception of the named class, or "RuntimeException" if the host does not have the class, with the UTF-8
// message and "ErrorNumber" 0. A null message becomes the empty message. Raises nothing if the host can create neither
// class.
void RaiseException(const char* className, const char* message);

// Raises an "OutOfBoundsException" whose message describes `value` as outside `minimum` to `limit` - 1. A null parameter
// name is written "?", a null or empty method name is omitted.
void RaiseOutOfBoundsException(std::int64_t value, std::int64_t minimum, std::int64_t limit, const char* parameterName,
                               const char* methodName);

// What a C++ exception becomes: the class of a host exception, null for no failure, and its message. A usual message is in
// `text`, so that it survives when memory is exhausted. A longer one is in `copy`, which `raiseFailure` frees; without
// memory for it the message is its beginning.
struct Failure {
    const char* className = nullptr;
    char* copy = nullptr;
    char text[200]; // set together with the class

    const char* message() const { return copy ? copy : text; }
};

// Returns the failure for the C++ exception being handled. May only be called in a handler.
Failure caughtFailure();

// Raises a failure. A C++ exception while its message is made leaves the message empty and is a failure that is raised
// before it, but for one while the message of that is made.
void raiseFailure(const Failure& failure);

// Raises the host exception for a thrown NSException: the one that the sibling plugin creates or, without a sibling, a
// "RuntimeException" whose message is the exception's name, a colon and its reason. Throws any other object again.
void raisePlatformException(id thrown);

// Runs the body and answers how it failed. A native exception goes on: it is caught inside, since where it unwinds the
// handler of everything would take it for a C++ one.
template <class Body>
Failure failureOf(Body body) {
    Failure failure; // one object from here to the caller: every string passes here, and the text is left as it is
    id thrown = nullptr;
    try {
        thrown = catchNative(body);
    } catch (...) {
        failure = caughtFailure();
    }
    if (thrown) throwNative(thrown);
    return failure;
}

// Runs the body. A C++ exception that leaves the body becomes a host exception, raised after its handler has ended.
template <class Body>
void translated(Body body) {
    const Failure failure = failureOf(body);
    if (failure.className) raiseFailure(failure);
}

} // namespace chroma
