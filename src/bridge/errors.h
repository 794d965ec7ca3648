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

// The host exception that a C++ exception becomes: its class, which is null if nothing failed, and its message. A message
// of usual length is in `text`, so that it survives if memory is exhausted. A longer one is in `copy`, which `raiseFailure`
// frees; without memory for the copy, `text` has the beginning of the message.
struct Failure {
    const char* className = nullptr;
    char* copy = nullptr;
    char text[200]; // set together with the class

    const char* message() const { return copy ? copy : text; }
};

// Returns the failure for the C++ exception being handled. May only be called in a handler.
Failure caughtFailure();

// Raises a failure and frees its message. If building the host's message string throws a C++ exception, the message stays
// empty and that second failure is raised first. A third failure, from building the second's message, is dropped.
void raiseFailure(const Failure& failure);

// Raises the host exception for a thrown NSException: the one that the sibling plugin creates or, without a sibling, a
// "RuntimeException" whose message is the exception's name, a colon and its reason. Throws any other object again.
void raisePlatformException(id thrown);

// Runs the body and returns the failure of its C++ exception, if any. A native exception propagates: it is caught inside,
// because on platforms where it unwinds the stack `catch (...)` would catch it as a C++ exception.
template <class Body>
Failure failureOf(Body body) {
    Failure failure; // one object up to the caller and without initialised text, because every host string is built here
    id thrown = nullptr;
    try {
        thrown = catchNative(body);
    } catch (...) {
        failure = caughtFailure();
    }
    if (thrown) throwNative(thrown);
    return failure;
}

// Runs the body. A C++ exception from the body becomes a host exception, which is raised after the C++ handler has ended.
template <class Body>
void translated(Body body) {
    const Failure failure = failureOf(body);
    if (failure.className) raiseFailure(failure);
}

} // namespace chroma
