// Host exceptions: objects of RuntimeException and its subclasses, and the one that is pending.
//
// A bound function, the host's own too, raises by recording the exception and returning. Whoever called it takes the pending
// exception and raises it in host code.
#pragma once

#include "model/objects.h"

#include <string>
#include <string_view>

namespace host {

namespace detail {
extern Object* pendingException; // owned
}

inline bool hasPendingException() { return detail::pendingException != nullptr; }

// Records the exception with a reference of its own. While one is pending a further one is dropped: the first is the cause.
void raise(Object* exception);

// Records a new exception of the built-in or plugin class. The class must descend from RuntimeException; otherwise, and when
// no such class exists, it is a RuntimeException.
void raise(std::string_view className, std::string_view text, HostInteger number = 0);

// The pending exception, which the caller now owns and which is pending no longer; null when there is none.
Object* takePendingException();

bool isException(const Object* object); // false for null

// Of an object for which isException holds.
std::string exceptionMessage(const Object* exception); // UTF-8
HostInteger exceptionErrorNumber(const Object* exception);
void setExceptionStack(Object* exception, std::string_view stack); // what its property Stack answers

} // namespace host
