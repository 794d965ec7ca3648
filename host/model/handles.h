// Handles: the native objects inside plugins' objects, as a property "Handle" that the host itself reads and writes.
//
// Such a word owns a retain that only its plugin can make or give up. A handle that a program writes is therefore lent: the
// object shows it, keeps alive the object that it was read from, and has its own back before its destructor runs. What no
// living object's Handle has answered is refused, so that a program cannot reach memory that is nobody's.
#pragma once

#include "model/owned.h"

namespace host {

// Reads the handle at `word` of the object's instance data; 0 is an empty object's.
HostInteger readHandle(Object* object, unsigned char* word);

// Lends the object another's handle, or gives it its own back. Records an UnsupportedOperationException, and changes
// nothing, for any other value and for the handle of an object that is not of `info` or a class that descends from it.
void writeHandle(Object* object, const ClassInfo& info, unsigned char* word, HostInteger handle);

// For the end of an object: gives it its own handle back and forgets it. The answer is the object that lent it another,
// which is to be kept until the destructor has run; null when none did.
Owned<Object> settleHandle(const Object* object);

} // namespace host
