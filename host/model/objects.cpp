#include "model/objects.h"

#include "model/classes.h"
#include "model/handles.h"
#include "model/storage.h"
#include "model/strings.h"

#include <cstdlib>
#include <new>

namespace host {

namespace {
std::size_t liveObjects = 0;
bool keepsAll = false;
} // namespace

Object* newObject(ClassInfo& info) {
    void* const memory = std::calloc(1, REALinstanceDataOffset + info.instanceSize());
    if (!memory) return nullptr;
    Object* const object = new (memory) Object{&info, 1, Slot()};
    ++liveObjects;
    ++info.liveObjects;
    info.construct(object);
    return object;
}

void keepAllObjects() { keepsAll = true; }

void destroyObject(Object* object) {
    if (keepsAll) return;
    // A destructor may lock and unlock its own object, which must not destroy it again.
    object->references = 1;
    ClassInfo& info = *object->info;
    const Owned<Object> lender = settleHandle(object);
    info.destruct(object);
    --liveObjects;
    --info.liveObjects;
    std::free(object);
}

unsigned char* instanceData(Object* object) { return addressAt(object, REALinstanceDataOffset); }

std::size_t liveObjectCount() { return liveObjects; }

void lock(const Type& type, Slot value) {
    if (type.isObjectReference()) {
        lock(value.object);
    } else if (type.kind == Kind::string) {
        lock(value.string);
    }
}

void unlock(const Type& type, Slot value) {
    if (type.isObjectReference()) {
        unlock(value.object);
    } else if (type.kind == Kind::string) {
        unlock(value.string);
    }
}

} // namespace host
