// Creation, counting and destruction of objects.
#pragma once

#include "runtime/autorelease.h"
#include "runtime/message.h"

#include <utility>

namespace chroma::builtin {

// Returns a new instance with a retain count of 1 and constructed members. Throws std::bad_alloc.
Object* allocate(ClassObject& cls);

// Destroys the members and frees the memory; NSObject's dealloc calls it. Throws what a member's release threw: afterwards
// in 64 bits, immediately in 32 bits, where the rest is skipped.
void deallocate(Object* object);

template <class Instance>
Instance* make() {
    return static_cast<Instance*>(allocate(Instance::cls));
}

// Makes the object immortal: it is no longer counted and never freed.
template <class Instance>
Instance* makeImmortal(Instance* object) {
    object->retainCount.store(immortal, std::memory_order_relaxed);
    object->isa->liveInstances.fetch_sub(1, std::memory_order_relaxed);
    return object;
}

// Reference counting, as NSObject does it. The platform counts directly, without messages, so a retain cannot throw. Only
// the destruction of an object sends a message, dealloc. nil is allowed.
template <class Instance>
Instance* retain(Instance* object) {
    if (object && object->retainCount.load(std::memory_order_relaxed) != immortal)
        object->retainCount.fetch_add(1, std::memory_order_relaxed);
    return object;
}

inline void release(Object* object) {
    if (!object || object->retainCount.load(std::memory_order_relaxed) == immortal) return;
    if (object->retainCount.fetch_sub(1, std::memory_order_acq_rel) == 1) send<void>(object, msg::dealloc);
}

// For objects that the platform has just created: sends no message, so nothing throws. Returns nil for nil.
template <class Instance>
Instance* autorelease(Instance* object) {
    if (object) pushAutoreleased(object);
    return object;
}

// Releases a member's object in the member's destructor. If the release throws, the exception continues after the
// containing object has been destroyed. Only `deallocate` may destroy such members.
void releaseMember(Object* object);

// A retained reference as a member of an object. Never use it as a local variable: an exception may jump past its
// destructor.
template <class Instance>
class Ref {
public:
    constexpr Ref() = default;
    explicit constexpr Ref(Instance* immortalObject) : object_(immortalObject) {}
    Ref(const Ref& other) : object_(retain(other.object_)) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(const Ref& other) { return *this = other.object_; }
    Ref& operator=(Ref&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() { releaseMember(object_); }

    Ref& operator=(Instance* object) {
        retain(object);
        adopt(object);
        return *this;
    }

    // Takes ownership of a reference.
    void adopt(Instance* object) { release(std::exchange(object_, object)); }

    // Transfers ownership of the reference to the caller.
    Instance* detach() { return std::exchange(object_, nullptr); }

    Instance* get() const { return object_; }
    Instance* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Instance* object_ = nullptr;
};

// A member that retains an object created at its first use.
template <class Instance>
class LazyRef {
public:
    LazyRef() = default;
    LazyRef(const LazyRef&) = delete;
    LazyRef& operator=(const LazyRef&) = delete;
    ~LazyRef() { releaseMember(object_.load(std::memory_order_relaxed)); }

    // `makeNew()` returns a reference that the caller owns, or null; after null it is called again the next time.
    template <class MakeNew>
    Instance* get(MakeNew makeNew) {
        Instance* current = object_.load(std::memory_order_acquire);
        if (current) return current;
        Instance* const created = makeNew();
        if (object_.compare_exchange_strong(current, created, std::memory_order_acq_rel)) return created;
        release(created);
        return current;
    }

private:
    std::atomic<Instance*> object_{nullptr};
};

} // namespace chroma::builtin
