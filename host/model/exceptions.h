// Host exceptions: objects of RuntimeException and its subclasses, and the pending exception.
//
// A bound function raises by recording the exception and returning; the host's own functions do the same. The caller takes
// the pending exception and raises it in host code.
#pragma once

#include "model/objects.h"

#include <string>
#include <string_view>

namespace host {

class Registry;

namespace detail {
extern Object* pendingException; // owned
}

inline bool hasPendingException() { return detail::pendingException != nullptr; }

// Records the exception and takes a reference to it. While an exception is pending, further ones are dropped: the first is
// the cause.
void raise(Object* exception);

// Records a new exception of the built-in or plugin class. If the class does not exist or does not descend from
// RuntimeException, the exception is a RuntimeException.
void raise(std::string_view className, std::string_view text, HostInteger number = 0);

// Returns the pending exception and clears it; the caller owns it. Returns null if there is none.
Object* takePendingException();

bool isException(const Object* object); // false for null

// The object must be an exception.
std::string exceptionMessage(const Object* exception); // UTF-8
HostInteger exceptionErrorNumber(const Object* exception);
void setExceptionStack(Object* exception, std::string_view stack); // the value of its property Stack

// Registers RuntimeException and its subclasses.
void registerExceptionClasses(Registry& registry);

} // namespace host
