// Objects from their allocation to their end.
#pragma once

#include "runtime/autorelease.h"
#include "runtime/message.h"

#include <utility>

namespace chroma::builtin {

// A new instance with a retain count of 1, its members constructed. Throws std::bad_alloc.
Object* allocate(ClassObject& cls);

// Destroys the members and frees the memory: what NSObject's dealloc does. What a member's end throws is thrown afterwards,
// in 32 bits at once, past what is left to do.
void deallocate(Object* object);

template <class Instance>
Instance* make() {
    return static_cast<Instance*>(allocate(Instance::cls));
}

// Takes the object out of all counting: it is never freed.
template <class Instance>
Instance* makeImmortal(Instance* object) {
    object->retainCount.store(immortal, std::memory_order_relaxed);
    object->isa->liveInstances.fetch_sub(1, std::memory_order_relaxed);
    return object;
}

// Counting, as NSObject does it. Inside the platform objects are counted directly, without messages: nothing is thrown on
// the way into an object. Only the end of an object is a message, dealloc. nil is allowed.
template <class Instance>
Instance* retain(Instance* object) {
    if (object && object->retainCount.load(std::memory_order_relaxed) != immortal) {
        object->retainCount.fetch_add(1, std::memory_order_relaxed);
    }
    return object;
}

inline void release(Object* object) {
    if (!object || object->retainCount.load(std::memory_order_relaxed) == immortal) return;
    if (object->retainCount.fetch_sub(1, std::memory_order_acq_rel) == 1) send<void>(object, msg::dealloc);
}

// For objects that the platform has just made: no message is sent, so that nothing is thrown. nil stays nil.
template <class Instance>
Instance* autorelease(Instance* object) {
    if (object) pushAutoreleased(object);
    return object;
}

// Releases what a member of an object holds, in a destructor of the member: what that throws goes on when the object is
// gone. Only `deallocate` may destroy such members.
void releaseMember(Object* object);

// A retained reference that is a member of an object. Never a local variable: an exception may jump past its destructor.
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

    // Takes over a reference that the caller owns.
    void adopt(Instance* object) { release(std::exchange(object_, object)); }

    // Hands the reference over to the caller.
    Instance* detach() { return std::exchange(object_, nullptr); }

    Instance* get() const { return object_; }
    Instance* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Instance* object_ = nullptr;
};

// A retained reference, as a member, to an object that is made when it is first asked for.
template <class Instance>
class LazyRef {
public:
    LazyRef() = default;
    LazyRef(const LazyRef&) = delete;
    LazyRef& operator=(const LazyRef&) = delete;
    ~LazyRef() { releaseMember(object_.load(std::memory_order_relaxed)); }

    // `makeNew()` gives a reference that the caller owns, or null, and then it is asked again the next time.
    template <class MakeNew>
    Instance* get(MakeNew makeNew) {
        Instance* current = object_.load(std::memory_order_acquire);
        if (current) return current;
        Instance* const made = makeNew();
        if (object_.compare_exchange_strong(current, made, std::memory_order_acq_rel)) return made;
        release(made);
        return current;
    }

private:
    std::atomic<Instance*> object_{nullptr};
};

} // namespace chroma::builtin
