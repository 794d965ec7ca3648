#include "runtime/lifetime.h"

#include "builtin/introspection.h"
#include "runtime/bootstrap.h"
#include "runtime/exceptions.h"
#include "runtime/export.h"

#include <cstdlib>
#include <memory>
#include <new>

namespace chroma::builtin {

Object* allocate(ClassObject& cls) {
    std::unique_ptr<void, decltype(&std::free)> memory(std::calloc(1, cls.instanceSize), &std::free);
    if (!memory) throw std::bad_alloc();
    cls.construct(memory.get());
    auto* const object = static_cast<Object*>(memory.release());
    object->isa = &cls;
    cls.liveInstances.fetch_add(1, std::memory_order_relaxed);
    return object;
}

// The first object that a member of the object being destroyed threw: a destructor must not throw.
static thread_local id thrownByMember = nullptr;

void releaseMember(Object* object) {
#if defined(__LP64__)
    try {
        release(object);
    } catch (const ThrownObject thrown) {
        if (!thrownByMember) thrownByMember = reinterpret_cast<id>(thrown);
    }
#else
    release(object);
#endif
}

void deallocate(Object* object) {
    ClassObject& cls = *object->isa;
    const id thrownBefore = std::exchange(thrownByMember, nullptr);
    cls.destroy(object);
    cls.liveInstances.fetch_sub(1, std::memory_order_relaxed);
    std::free(object);
    if (const id thrown = std::exchange(thrownByMember, thrownBefore)) throwObject(thrown);
}

} // namespace chroma::builtin

namespace chroma {

BUILTIN_EXPORT std::size_t builtin_liveInstances(const char* className) {
    builtin::ensurePlatform();
    const builtin::ClassObject* const cls = builtin::findClass(className);
    return cls ? static_cast<std::size_t>(cls->liveInstances.load(std::memory_order_relaxed)) : 0;
}

} // namespace chroma
