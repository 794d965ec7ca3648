// Host objects: a header of 24 bytes in every width, the instance data of the class behind it, and an exact reference count.
#pragma once

#include "model/types.h"
#include "model/values.h"

#include <cstddef>
#include <cstdint>

namespace host {
class ClassInfo;
}

// The contract leaves the object opaque; this is what it is in this host.
struct REALobjectStruct {
    alignas(8) host::ClassInfo* info; // never null
    alignas(8) std::int32_t references;
    alignas(
        8) host::Slot own; // the state of a built-in class, beside the instance data; what it holds is the class's affair
};
static_assert(sizeof(REALobjectStruct) == REALinstanceDataOffset);

namespace host {

// A new object of the class with one reference for the caller: instance data zeroed, class constructors run, the
// superclass's first. Null when memory is exhausted.
Object* newObject(ClassInfo& info);

// Runs the class destructors, the superclass's last, and frees the object. Only unlock calls this.
void destroyObject(Object* object);

// One reference more, one fewer. Null is allowed.
inline void lock(Object* object) {
    if (object) ++object->references;
}
inline void unlock(Object* object) {
    if (object && --object->references == 0) destroyObject(object);
}

// From here on no object ends: in a host whose plugins cannot lock one, what they hand out has no reference of its own.
void keepAllObjects();

// The first byte of the instance data.
unsigned char* instanceData(Object* object);

// Objects alive in this process, arrays and boxed variants included.
std::size_t liveObjectCount();

// One reference more or fewer on a value of the given type; nothing for types that carry none.
void lock(const Type& type, Slot value);
void unlock(const Type& type, Slot value);

} // namespace host
