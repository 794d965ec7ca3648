// Host objects: a header of 24 bytes in every width, followed by the class's instance data, with an exact reference count.
#pragma once

#include "values/types.h"
#include "values/values.h"

#include <cstddef>
#include <cstdint>

namespace host {
class ClassInfo;
}

// The contract does not define the layout of an object. This is the layout of this host.
struct REALobjectStruct {
    alignas(8) host::ClassInfo* info; // never null
    alignas(8) std::int32_t references;
    alignas(8) host::Slot own; // the state of a built-in class, outside the instance data; the class owns its contents
};
static_assert(sizeof(REALobjectStruct) == REALinstanceDataOffset);

namespace host {

// Returns a new object of the class with one reference for the caller. The instance data is zeroed and the class
// constructors have run, the superclass's first. Returns null when memory is exhausted.
Object* newObject(ClassInfo& info);

// Runs the class destructors, the superclass's last, and frees the object. Only unlock calls this. In a long chain of
// objects, the last ones wait until the first is freed.
void destroyObject(Object* object);

// Add and remove one reference. Null is allowed.
inline void lock(Object* object) {
    if (object) ++object->references;
}
inline void unlock(Object* object) {
    if (object && --object->references == 0) destroyObject(object);
}

// Prevents the destruction of all objects from now on. Used for hosts whose plugins cannot lock objects: the caller
// receives no reference to an object that such a plugin returns.
void keepAllObjects();

// Returns the first byte of the instance data.
unsigned char* instanceData(Object* object);

// Returns the number of living objects, including arrays and boxed variants.
std::size_t liveObjectCount();

// Add and remove one reference to a value of the type; do nothing for types without references.
void lock(const Type& type, Slot value);
void unlock(const Type& type, Slot value);

} // namespace host
