#include "model/objects.h"

#include "model/classes.h"
#include "model/handles.h"
#include "values/checked_memory.h"
#include "values/storage.h"
#include "values/strings.h"

#include <new>
#include <vector>

namespace host {

namespace {
std::size_t liveObjects = 0;
bool keepsAll = false;

// Each object may hold the last reference to another. Objects beyond this nesting wait, so that a long chain does not
// overflow the stack.
constexpr unsigned maxNesting = 100;
unsigned nesting = 0;
std::vector<Object*> waiting;

bool postpone(Object* object) {
    try {
        waiting.push_back(object);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}
} // namespace

Object* newObject(ClassInfo& info) {
    void* const block = memory::allocateZeroed(REALinstanceDataOffset + info.instanceSize());
    if (!block) return nullptr;
    Object* const object = new (block) Object{&info, 1, Slot()};
    ++liveObjects;
    ++info.liveObjects;
    info.construct(object);
    return object;
}

void keepAllObjects() { keepsAll = true; }

void destroyNested(Object* object) {
    struct Level {
        Level() { ++nesting; }
        ~Level() { --nesting; }
    } const level;
    ClassInfo& info = *object->info;
    const Owned<Object> lender = settleHandle(object);
    info.destruct(object);
    --liveObjects;
    --info.liveObjects;
    memory::release(object);
}

void destroyObject(Object* object) {
    if (keepsAll) return;
    // A destructor may lock and unlock its own object, which must not destroy it again.
    object->references = 1;
    if (nesting == maxNesting && postpone(object)) return;
    destroyNested(object);
    while (nesting == 0 && !waiting.empty()) {
        Object* const next = waiting.back();
        waiting.pop_back();
        destroyNested(next);
    }
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
