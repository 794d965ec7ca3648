// Handles: the native objects inside plugins' objects, as a property "Handle" that the host itself reads and writes.
//
// The word owns a retain that only its plugin can create or release. So a handle that a program writes is borrowed: the
// object shows it and keeps the object it was read from alive. The own handle is restored before the destructor runs. A
// handle that no living object's Handle returned is refused, so that a program cannot access arbitrary memory.
#pragma once

#include "model/owned.h"

namespace host {

// Returns the handle at `word` of the object's instance data; 0 for an empty object.
HostInteger readHandle(Object* object, unsigned char* word);

// Sets the object's handle to another object's, or back to its own. For any other value, and for the handle of an object
// that is not of `info` or a derived class, records an UnsupportedOperationException and changes nothing.
void writeHandle(Object* object, const ClassInfo& info, unsigned char* word, HostInteger handle);

// Restores the object's own handle and removes the object from the records, before it is destroyed. Returns the object
// whose handle it had borrowed, or null. The caller must keep that object until the destructor has run.
Owned<Object> settleHandle(const Object* object);

} // namespace host
